#include "scene/base/SC_Id.h"

const SC_Id &SC_Id::nullSceneId()
{
    static constexpr SC_Id null;
    return null;
}
