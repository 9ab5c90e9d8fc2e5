#pragma once

#include "plotka_export.h"
#include "scene/base/UT_SharedWeakPtr.h"
#include "scene/changes/TUChangeSet.h"

#include <QMetaType>

class AT_TransitionSeq;

/// The transitions that changed. They are not kept alive: a receiver meets entries whose transition
/// has gone, which read as null.
class PLOTKA_EXPORT PKC_TransitionSequenceSet : public TUChangeSet<UT_SharedWeakPtr<AT_TransitionSeq>>
{
};

Q_DECLARE_METATYPE(PKC_TransitionSequenceSet)
