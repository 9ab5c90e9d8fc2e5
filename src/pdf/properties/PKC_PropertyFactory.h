#pragma once

#include "plotka_export.h"

class PKC_Property;
class QString;

class PLOTKA_EXPORT PKC_PropertyFactory
{
public:
    /// An empty property of the kind with that PKC_Property::propertyType(), owned by the caller. Null for what is not
    /// 0 to 4: lists of captions are not made here.
    static PKC_Property *create(int propertyType, const QString &name);
};
