#pragma once

#include "infofields/PKC_InfoField.h"
#include "scene/base/UT_SharedPtr.h"
#include "scene/metadata/PIO_Metadata.h"

#include <list>
#include <map>
#include <set>

class PKC_ExtraInfoFieldDescList;
class PKC_InfoFieldDescList;

using PKC_InfoFieldList_t = std::list<UT_SharedPtr<PKC_InfoField>>;

/// What the captions of one panel, or those of the project, hold, in the order in which they are shown. Kept with the
/// panel's scene, or with the project.
///
/// The list is part of the record and may be walked and changed directly. A null entry, which nothing here makes, has no
/// id and is not written. Copies share their entries with the source; clone() alone copies them. Of the reserved ids,
/// PKC_InfoFieldDesc::endId means the end, or that there is no such field, and PKC_InfoFieldDesc::firstId the first
/// entry. Nobody is told of a change; see emitChanged().
class PLOTKA_EXPORT PKC_InfoFieldList : public PIO_Metadata, public PKC_InfoFieldList_t
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_InfoFieldList(const QString &name = QString());
    PKC_InfoFieldList(const QString &name, const QString &creator, const QString &version);
    PKC_InfoFieldList(const PKC_InfoFieldList &) = default;
    PKC_InfoFieldList &operator=(const PKC_InfoFieldList &) = default;

    // The order of the virtual functions is relied on by those that derive from this class.
    ~PKC_InfoFieldList() override;
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    /// With entries of their own, each as PKC_InfoField::clone() gives it.
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    /// @name Look-ups
    /// The end, null and false when there is no such entry. rfind() searches from the back: there endId gives rbegin()
    /// and firstId gives rend().
    /// @{
    iterator find(int id);
    const_reverse_iterator rfind(int id) const;
    bool contain(int id) const;
    bool containsCustomSize() const;
    UT_SharedPtr<PKC_InfoField> getInfoField(int id);
    /// A global id is its own answer. For a local field the id of the global one nearest before it; when there is none, the
    /// id of the first entry. An id that is not here is its own answer as well.
    int getPreviousGlobalInfoField(int id) const;
    /// @}

    /// @name Ids
    /// @{
    /// Merges this list's order into @p ids: an id that is not there yet goes right behind its neighbour, or to the end.
    void getIds(std::list<int> &ids) const;
    void getIds(std::set<int> &ids) const;
    /// The greatest negative id that no entry has.
    int getUniqId() const;
    /// @}

    /// @name Inserting
    /// Before the entry with the id @p beforeId, or at the end when there is none. They give the id of the new entry.
    /// @{
    /// The field as it is, but a reserved id becomes a new local one. A null pointer inserts nothing and gives endId.
    int insertInfoField(UT_SharedPtr<PKC_InfoField> field, int beforeId);
    /// A new field. A reserved id chooses a new local one. A global field gets no name, since its descriptor has it. Once
    /// one field has custom size, every later one gets it. Exactly the type IMAGE gives an image, all others a text
    /// without comment bit.
    int insertInfoField(PKC_InfoFieldDesc::Type type, const QString &name, int id, PKC_InfoFieldDesc::Size size,
        int height, const QString &value, int beforeId);
    int insertInfoField(PKC_InfoFieldDesc::Type type, const QString &name, int id, const QString &value, int beforeId);
    int insertInfoField(PKC_InfoFieldDesc::Type type, int id, const QString &value, int beforeId);
    int insertInfoField(PKC_InfoFieldDesc::Type type, int id, int beforeId);
    /// Replaces all entries by an empty field for each descriptor, with its type, comment bit included, and its id,
    /// reserved or not.
    void reserveInfoFields(const PKC_InfoFieldDescList &descs);
    /// Adds an empty local field for each descriptor, before the entry whose id is the descriptor's position.
    void reserveExtraInfoFields(const PKC_ExtraInfoFieldDescList &descs);
    /// @}

    /// Appends to @p descs one entry for each local field that has a name. Null is ignored.
    void copyExtra(PKC_ExtraInfoFieldDescList *descs) const;

    /// @name Moving
    /// An entry goes before another, or to the end when there is no other of that id. Gives the id of the entry that
    /// followed it, or endId when it was the last: what move() needs to undo this. The entry's own id when it stands
    /// there already, and endId when there is no such entry.
    /// @{
    int move(int id, int beforeId);
    int moveInfoField(int id, int beforeId) { return move(id, beforeId); }
    /// @}

    /// @name Giving other ids
    /// Entries whose id is a key get the mapped id, each once; a pair that maps to a reserved id is ignored. Always true.
    /// @{
    bool remap(const std::map<int, int> &ids);
    bool remapInfoField(const std::map<int, int> &ids) { return remap(ids); }
    /// @}

    /// @name Removing
    /// @{
    /// Removes all entries with these ids. Always true.
    bool remove(const std::set<int> &ids);
    bool removeInfoField(const std::set<int> &ids) { return remove(ids); }
    /// Takes the first entry with exactly this id out and gives it, with nextId() set for putting it back; null when there
    /// is none. Reserved ids mean no place here.
    UT_SharedPtr<PKC_InfoField> removeInfoField(int id);
    /// @}

    /// @name Renaming
    /// Only a local field takes a new name; its id is given. Otherwise endId, and @p oldName is as it was.
    /// @{
    int renameInfoField(int id, const QString &name, QString &oldName);
    int renameInfoField(int id, const QString &name);
    /// @}

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;
};
