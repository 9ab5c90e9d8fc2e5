#pragma once

#include "infofields/PKC_InfoField.h"
#include "infofields/PKC_InfoFieldDesc.h"
#include "scene/base/UT_SharedPtr.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <list>
#include <map>
#include <set>
#include <vector>

/// What the list of descriptors and the list of values do alike. Reserved ids mean places everywhere here.
///
/// A list of values may hold null pointers: they are entries without an id and are never found.
namespace FieldLists
{

inline PKC_InfoFieldDesc *fieldOf(PKC_InfoFieldDesc &entry)
{
    return &entry;
}
inline const PKC_InfoFieldDesc *fieldOf(const PKC_InfoFieldDesc &entry)
{
    return &entry;
}
inline PKC_InfoField *fieldOf(const UT_SharedPtr<PKC_InfoField> &entry)
{
    return entry.get();
}

inline bool isReserved(int id)
{
    return id == PKC_InfoFieldDesc::endId || id == PKC_InfoFieldDesc::firstId;
}

template <typename Entry>
bool hasId(const Entry &entry, int id)
{
    const PKC_InfoFieldDesc *field = fieldOf(entry);
    return field && field->id() == id;
}

/// The id of the entry at @p place, or endId when none is there.
template <typename List, typename Iterator>
int idAt(const List &list, Iterator place)
{
    const PKC_InfoFieldDesc *field = place == list.end() ? nullptr : fieldOf(*place);
    return field ? field->id() : PKC_InfoFieldDesc::endId;
}

/// The entry that @p id addresses, or the end. @p list is const or not, and the iterator as well.
template <typename List>
auto find(List &list, int id)
{
    if (id == PKC_InfoFieldDesc::endId)
        return list.end();
    if (id == PKC_InfoFieldDesc::firstId)
        return list.begin();
    return std::find_if(list.begin(), list.end(), [id](const auto &entry) { return hasId(entry, id); });
}

/// Looks from the back: once one has custom size, all that come later have it.
template <typename List>
bool containsCustomSize(const List &list)
{
    return std::any_of(list.rbegin(), list.rend(), [](const auto &entry) {
        const PKC_InfoFieldDesc *field = fieldOf(entry);
        return field && field->size() == PKC_InfoFieldDesc::CUSTOM;
    });
}

template <typename List>
void collectIds(const List &list, std::set<int> &ids)
{
    for (const auto &entry : list) {
        if (const PKC_InfoFieldDesc *field = fieldOf(entry))
            ids.insert(field->id());
    }
}

/// The first of the ids in the order of @p place that no entry has. It comes after as many as there are entries at the
/// latest, so a bit for each of these is all that must be remembered. @p place counts from 0 and is beyond all of
/// them for an id that is not meant.
template <typename List, typename Place>
std::size_t firstFreePlace(const List &list, Place place)
{
    std::vector<bool> taken(list.size());
    for (const auto &entry : list) {
        const PKC_InfoFieldDesc *field = fieldOf(entry);
        if (const quint64 at = field ? place(field->id()) : taken.size(); at < taken.size())
            taken[at] = true;
    }
    return static_cast<std::size_t>(std::find(taken.begin(), taken.end(), false) - taken.begin());
}

template <typename List>
void mergeIds(const List &list, std::list<int> &ids)
{
    std::map<int, std::list<int>::iterator> places;
    for (auto place = ids.begin(); place != ids.end(); ++place)
        places.emplace(*place, place);
    auto behindPrevious = ids.end(); // the first goes to the end
    for (const auto &entry : list) {
        const PKC_InfoFieldDesc *field = fieldOf(entry);
        if (!field)
            continue;
        auto known = places.find(field->id());
        if (known == places.end())
            known = places.emplace(field->id(), ids.insert(behindPrevious, field->id())).first;
        behindPrevious = std::next(known->second);
    }
}

template <typename List>
int move(List &list, int id, int beforeId)
{
    const auto entry = find(list, id);
    if (entry == list.end() || !fieldOf(*entry))
        return PKC_InfoFieldDesc::endId;
    const auto target = find(list, beforeId);
    const auto next = std::next(entry);
    if (target == entry || target == next)
        return idAt(list, entry);
    const int oldNeighbour = idAt(list, next);
    list.splice(target, list, entry);
    return oldNeighbour;
}

template <typename List>
void remap(List &list, const std::map<int, int> &ids)
{
    std::set<const PKC_InfoFieldDesc *> remapped; // a field may be in the list twice
    for (auto &entry : list) {
        PKC_InfoFieldDesc *field = fieldOf(entry);
        const auto mapped = field ? ids.find(field->id()) : ids.end();
        if (mapped == ids.end() || isReserved(mapped->second) || !remapped.insert(field).second)
            continue;
        field->setId(mapped->second);
    }
}

template <typename List>
void remove(List &list, const std::set<int> &ids)
{
    list.remove_if([&ids](const auto &entry) {
        const PKC_InfoFieldDesc *field = fieldOf(entry);
        return field && ids.count(field->id()) > 0;
    });
}

} // namespace FieldLists
