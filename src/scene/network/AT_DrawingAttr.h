#pragma once

#include "scene/base/UT_SharedWeakPtr.h"
#include "scene/network/AT_Attr.h"

class TUTimedValue;

/// What an element shows. TUTimedValue::linkNode makes the link.
class PLOTKA_SCENE_EXPORT AT_DrawingAttr : public AT_Attr
{
public:
    /// The timed value that drives the element; null without one and once it has died.
    TUTimedValue *linkedTimedValue() const;

private:
    friend class TUTimedValue;

    UT_SharedWeakPtr<TUTimedValue> m_linkedTimedValue;
};
