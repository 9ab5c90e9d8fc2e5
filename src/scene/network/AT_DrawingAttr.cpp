#include "scene/network/AT_DrawingAttr.h"

#include "scene/timeline/TUTimedValue.h"

TUTimedValue *AT_DrawingAttr::linkedTimedValue() const
{
    return m_linkedTimedValue.get();
}
