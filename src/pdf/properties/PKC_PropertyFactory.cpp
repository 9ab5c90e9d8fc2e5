#include "pdf/properties/PKC_PropertyFactory.h"

#include "pdf/properties/PKC_PropertyFromFile.h"
#include "pdf/properties/PKC_PropertyFromFont.h"
#include "pdf/properties/PKC_PropertyFromList.h"
#include "pdf/properties/PKC_PropertyFromRange.h"

PKC_Property *PKC_PropertyFactory::create(int propertyType, const QString &name)
{
    switch (propertyType) {
    case 0:
        return new PKC_Property(name);
    case 1:
        return new PKC_PropertyFromList(name);
    case 2:
        return new PKC_PropertyFromRange(name);
    case 3:
        return new PKC_PropertyFromFile(name);
    case 4:
        return new PKC_PropertyFromFont(name);
    default:
        return nullptr;
    }
}
