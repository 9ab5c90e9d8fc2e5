#include "pdf/properties/PKC_PropertyFromFont.h"

PKC_PropertyFromFont::~PKC_PropertyFromFont() = default;

PKC_Property *PKC_PropertyFromFont::clone() const
{
    return new PKC_PropertyFromFont(*this);
}

int PKC_PropertyFromFont::propertyType() const
{
    return 4;
}
