#pragma once

#include "infofields/PKC_InfoFieldList.h"

#include <optional>
#include <set>

/// The ids that new local fields of a list may have: from -1 downwards.
class LocalIds
{
public:
    explicit LocalIds(const PKC_InfoFieldList &list) { list.getIds(m_used); }

    void take(int id) { m_used.insert(id); }
    /// The greatest negative id that is not taken. Ids are never given back, so none is looked at twice.
    int next();

private:
    std::set<int> m_used;
    int m_next = -1;
};

/// Makes new fields in a list and follows its rules for ids and sizes. One inserter for many fields asks the list only
/// once for what is there, so that reading a list of any length takes time in proportion; meanwhile nobody else changes
/// the list.
class InfoFieldInserter
{
public:
    explicit InfoFieldInserter(PKC_InfoFieldList &list) : m_list(&list), m_hasCustomSize(list.containsCustomSize()) {}

    /// The new field, which the list holds.
    PKC_InfoField &insert(PKC_InfoFieldDesc::Type type, const QString &name, int id, PKC_InfoFieldDesc::Size size,
        int height, const QString &value, PKC_InfoFieldList::iterator place);

private:
    PKC_InfoFieldList *m_list;
    bool m_hasCustomSize;
    std::optional<LocalIds> m_localIds; // once a field needed a new id
};
