#include "scene/metadata/PIO_MetadataFactory.h"

#include "scene/metadata/PIO_MetadataBool.h"
#include "scene/metadata/PIO_MetadataDouble.h"
#include "scene/metadata/PIO_MetadataInt.h"
#include "scene/metadata/PIO_MetadataString.h"

#include <utility>

namespace
{

// Constant-initialised: factories may register themselves before main(). The latest; it knows the one before it.
PIO_MetadataFactory *registered = nullptr;

} // namespace

PIO_Metadata *PIO_MetadataFactory::createMeta(
    const QString &type, const QString &name, const QString &creator, const QString &version)
{
    if (type == PIO_MetadataString::keyword())
        return new PIO_MetadataString(name, creator, version);
    if (type == PIO_MetadataInt::keyword())
        return new PIO_MetadataInt(name, creator, version);
    if (type == PIO_MetadataDouble::keyword())
        return new PIO_MetadataDouble(name, creator, version);
    if (type == PIO_MetadataBool::keyword())
        return new PIO_MetadataBool(name, creator, version);
    return nullptr;
}

PIO_MetadataFactory::~PIO_MetadataFactory()
{
    unregister(this);
}

void PIO_MetadataFactory::registerImpl(PIO_MetadataFactory *factory)
{
    if (!factory) {
        while (registered)
            unregister(registered);
        return;
    }
    unregister(factory);
    factory->m_before = std::exchange(registered, factory);
}

void PIO_MetadataFactory::unregister(PIO_MetadataFactory *factory)
{
    for (PIO_MetadataFactory **place = &registered; *place; place = &(*place)->m_before) {
        if (*place == factory) {
            *place = std::exchange(factory->m_before, nullptr);
            return;
        }
    }
}

PIO_MetadataFactory *PIO_MetadataFactory::instance()
{
    static PIO_MetadataFactory *const generics = new PIO_MetadataFactory; // outlives every static object
    return registered ? registered : generics;
}
