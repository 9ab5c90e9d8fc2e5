#pragma once

#include "scene/base/UT_SharedWeakPtr.h"
#include "scene/changes/PIO_MetaModif.h"
#include "scene/changes/TUChangeSet.h"

class MO_Node;
class TUTimedValue;

/// The sets that the signals of TUSceneChangeManager carry.
using TUTvSet = TUChangeSet<UT_SharedWeakPtr<TUTimedValue>>;
using TUNodeSet = TUChangeSet<UT_SharedWeakPtr<MO_Node>>;
using TUMetadataSet = TUChangeSet<PIO_MetaModif>;
