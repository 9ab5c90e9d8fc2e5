#pragma once

#include "plotka_export.h"
#include "scene/base/SC_Id.h"

class AT_FrameBlock;
class TUScene;
class TUSeq;

namespace Plotka
{

/// The null id.
PLOTKA_EXPORT extern const SC_Id invalidId;

/// The id of the object: for a shot, panel or clip the scene's object id, equal to that of the block that places it;
/// for a transition its own. invalidId for null, an invalid block and what is no object.
/// @{
PLOTKA_EXPORT const SC_Id &objectId(const TUScene *scene);
PLOTKA_EXPORT const SC_Id &objectId(const TUSeq *seq);
PLOTKA_EXPORT const SC_Id &objectId(const AT_FrameBlock &block);
/// @}

} // namespace Plotka
