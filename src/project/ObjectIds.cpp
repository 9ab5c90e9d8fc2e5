#include "project/ObjectIds.h"

#include "scene/project/TUScene.h"
#include "scene/timeline/AT_FrameBlock.h"
#include "scene/timeline/AT_TransitionSeq.h"

const SC_Id Plotka::invalidId;

const SC_Id &Plotka::objectId(const TUScene *scene)
{
    return scene ? scene->objectId() : invalidId;
}

const SC_Id &Plotka::objectId(const TUSeq *seq)
{
    if (const TUSeq *identified = seq ? seq->identifiedSeq() : nullptr)
        return identified->id;
    if (const AT_TransitionSeq *transition = seq ? seq->transitionView() : nullptr)
        return transition->id;
    return invalidId;
}

const SC_Id &Plotka::objectId(const AT_FrameBlock &block)
{
    return block.isValid() ? objectId(block.seq()) : invalidId;
}
