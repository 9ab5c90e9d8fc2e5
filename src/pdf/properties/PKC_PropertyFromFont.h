#pragma once

#include "pdf/properties/PKC_Property.h"

/// The name of a font. Whether there is such a font is not asked.
class PLOTKA_EXPORT PKC_PropertyFromFont : public PKC_Property
{
public:
    using PKC_Property::PKC_Property;
    ~PKC_PropertyFromFont() override;

    PKC_Property *clone() const override;
    int propertyType() const override; ///< 4

protected:
    PKC_PropertyFromFont(const PKC_PropertyFromFont &) = default;
};
