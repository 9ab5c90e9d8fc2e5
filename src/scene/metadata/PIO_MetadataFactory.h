#pragma once

#include "plotka_scene_export.h"

#include <QString>

class PIO_Metadata;

/// Turns the type keyword of a stored record back into an object.
///
/// This class knows the generic records. A factory that knows more derives from it, registers
/// itself and hands over to this class what it does not know.
class PLOTKA_SCENE_EXPORT PIO_MetadataFactory
{
public:
    PIO_MetadataFactory() = default;
    PIO_MetadataFactory(const PIO_MetadataFactory &) = delete;
    PIO_MetadataFactory &operator=(const PIO_MetadataFactory &) = delete;

    // The order of the virtual functions is relied on by those that derive from this class.
    /// A new record owned by the caller, or null for a type this factory does not know.
    virtual PIO_Metadata *createMeta(
        const QString &type, const QString &name, const QString &creator, const QString &version);
    /// A registered factory that dies is no longer registered; the one registered before it is again.
    virtual ~PIO_MetadataFactory();

    /// Every record read from a file is made by @p factory from now on; null goes back to the generic
    /// records alone. Only the pointer is kept: it may be called from a constructor.
    static void registerImpl(PIO_MetadataFactory *factory);
    /// The registered factory, or one that knows the generic records alone. Never null.
    static PIO_MetadataFactory *instance();

private:
    static void unregister(PIO_MetadataFactory *factory);

    PIO_MetadataFactory *m_before = nullptr; // registered before this one
};
