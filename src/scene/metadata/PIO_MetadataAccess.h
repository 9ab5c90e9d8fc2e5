#pragma once

#include "scene/metadata/PIO_Metadata.h"
#include "scene/metadata/PIO_Metadatas.h"

#include <QString>

#include <cstddef>
#include <typeinfo>
#include <utility>

/// Typed doorway to one record of a container: the first record of class T, or the first of that
/// name. It remembers what it found.
template <typename T>
class PIO_MetadataAccess
{
public:
    PIO_MetadataAccess() = default;
    PIO_MetadataAccess(PIO_Metadatas *records, QString recordName) : container(records), name(std::move(recordName)) {}
    PIO_MetadataAccess(const PIO_MetadataAccess &) = default;
    PIO_MetadataAccess &operator=(const PIO_MetadataAccess &) = default;
    virtual ~PIO_MetadataAccess() = default;

    /// The record, or null. A remembered record that its container no longer holds is looked up anew.
    T *get()
    {
        if (result && (!container || container->removalCount() == m_removalsSeen))
            return result;
        result = container ? find() : nullptr;
        m_removalsSeen = container ? container->removalCount() : 0;
        return result;
    }

    /// As get(), but makes the record and adds it, silently, when the container has none. Null only
    /// without a container.
    T *getOrCreate()
    {
        if (T *known = get(); known || !container)
            return known;
        result = new T(name);
        container->add(result); // get() has taken note of the removals
        return result;
    }

    /// The place of the record in the container; the number of its records when there is none.
    static std::size_t placeIn(const PIO_Metadatas &records, const QString &name)
    {
        const PIO_Metadatas::View view = records.view();
        std::size_t place = 0;
        while (place < view.size() && !(isOfClass(view[place]) && (name.isNull() || view[place].metaName() == name)))
            ++place;
        return place;
    }

    // The order of the fields is relied on by those that hold an access. Null where there is none.
    PIO_Metadatas *container = nullptr;
    T *result = nullptr;
    /// A null name takes any record of the class; an empty one only a record with an empty name.
    QString name;

private:
    // Most records are exactly of the class asked for, or of one that has nothing to do with it.
    static bool isOfClass(const PIO_Metadata &record)
    {
        return typeid(record) == typeid(T) || dynamic_cast<const T *>(&record);
    }

    T *find() const
    {
        const std::size_t place = placeIn(*container, name);
        return place < container->view().size() ? dynamic_cast<T *>(container->own(place)) : nullptr;
    }

    // An address alone does not tell a record from another made in its place.
    unsigned int m_removalsSeen = 0;
};
