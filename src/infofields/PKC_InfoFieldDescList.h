#pragma once

#include "infofields/PKC_InfoFieldDesc.h"
#include "scene/metadata/PIO_Metadata.h"

#include <list>
#include <map>
#include <set>

using PKC_InfoFieldDescList_t = std::list<PKC_InfoFieldDesc>;

/// The captions that all panels have, or those that the project has, in the order in which they are shown. Kept with
/// the project.
///
/// The list is part of the record and may be walked and changed directly. Several entries may have the same id; look-ups
/// find the first. Of the reserved ids, PKC_InfoFieldDesc::endId means the end and PKC_InfoFieldDesc::firstId the first
/// entry. Nobody is told of a change; see emitChanged().
class PLOTKA_EXPORT PKC_InfoFieldDescList : public PIO_Metadata, public PKC_InfoFieldDescList_t
{
public:
    PKC_InfoFieldDescList(const QString &type, const QString &name, const QString &creator, const QString &version);
    PKC_InfoFieldDescList(const PKC_InfoFieldDescList &) = default;
    PKC_InfoFieldDescList &operator=(const PKC_InfoFieldDescList &) = default;

    // The order of the virtual functions is relied on by those that derive from this class.
    ~PKC_InfoFieldDescList() override;
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override = 0;
    void dumpToString(QString &text) const override;

    /// Appends, also when the id is there already.
    void add(PKC_InfoFieldDesc::Type type, int id, const QString &name, PKC_InfoFieldDesc::Size size, int height);

    /// @name Look-ups
    /// end() and false when there is no such entry. Names are compared by case; an empty one is never found.
    /// @{
    iterator find(int id);
    const_iterator find(const QString &name) const;
    bool contain(int id) const;
    bool contain(const QString &name) const;
    bool containsCustomSize() const;
    /// @}

    /// @name Ids
    /// @{
    /// Merges this list's order into @p ids: an id that is not there yet goes right behind its neighbour, or to the end.
    void getIds(std::list<int> &ids) const;
    void getIds(std::set<int> &ids) const;
    /// The smallest id from 0 on that no entry has.
    int getUniqId() const;
    /// @}

    /// Moves an entry before another, or to the end when there is no other of that id. Gives the id of the entry that
    /// followed it, or endId when it was the last: what move() needs to undo this. The entry's own id when it stands
    /// there already, and endId when there is no such entry.
    int move(int id, int beforeId);
    /// Gives entries whose id is a key the mapped id; a pair that maps to a reserved id is ignored. Always true.
    bool remap(const std::map<int, int> &ids);
    /// Removes all entries with these ids. Always true.
    bool remove(const std::set<int> &ids);

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;
};
