#pragma once

#include "metadata/PKC_ObjInfo.h"

/// The three names of a shot: its own, its sequence's and its act's. Kept with its scene; acts and
/// sequences have no record of their own.
///
/// The shot's name of a record made here counts as custom, so the record is not valid until it has a
/// text. A file that does not say so loads as an automatic name.
class PLOTKA_EXPORT PKC_SceneInfo : public PKC_ObjInfo
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    explicit PKC_SceneInfo(const QString &name = QString());
    PKC_SceneInfo(const QString &name, const QString &creator, const QString &version);
    PKC_SceneInfo(const PKC_SceneInfo &) = default;
    PKC_SceneInfo &operator=(const PKC_SceneInfo &) = default;
    ~PKC_SceneInfo() override;

    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    const PKC_ObjectName &sequenceName() const { return m_sequenceName; }
    PKC_ObjectName &sequenceName() { return m_sequenceName; }
    const PKC_ObjectName &actName() const { return m_actName; }
    PKC_ObjectName &actName() { return m_actName; }

    bool canModifySequenceName() const { return !m_sequenceName.isLocked(); }
    bool canModifyActName() const { return !m_actName.isLocked(); }

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    PKC_ObjectName m_sequenceName;
    PKC_ObjectName m_actName;
};
