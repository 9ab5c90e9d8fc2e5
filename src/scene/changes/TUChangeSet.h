#pragma once

#include <cstddef>
#include <set>
#include <utility>

/// An ordered set of what has changed. Weak pointers in it may have died; they keep their place.
template <typename Key>
class TUChangeSet
{
public:
    using key_type = Key;
    using value_type = Key;
    using iterator = typename std::set<Key>::const_iterator;
    using const_iterator = iterator;
    using size_type = std::size_t;

    iterator begin() const { return m_keys.begin(); }
    iterator end() const { return m_keys.end(); }
    iterator find(const Key &key) const { return m_keys.find(key); }
    /// The first key that is not before @p key.
    iterator lower_bound(const Key &key) const { return m_keys.lower_bound(key); }
    /// 0 or 1.
    size_type count(const Key &key) const { return m_keys.count(key); }
    bool include(const Key &key) const { return m_keys.count(key) != 0; }

    /// A key already present stays one entry.
    std::pair<iterator, bool> insert(const Key &key) { return m_keys.insert(key); }
    iterator insert(iterator hint, const Key &key) { return m_keys.insert(hint, key); }

    /// The argument may be a key of this set.
    size_type erase(const Key &key) { return m_keys.erase(Key(key)); }
    iterator erase(iterator position) { return m_keys.erase(position); }
    iterator erase(iterator first, iterator last) { return m_keys.erase(first, last); }

    void clear() { m_keys.clear(); }
    bool empty() const { return m_keys.empty(); }
    size_type size() const { return m_keys.size(); }

private:
    std::set<Key> m_keys;
};
