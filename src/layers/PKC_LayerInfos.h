#pragma once

#include "plotka_export.h"
#include "scene/base/UT_ShareBase.h"
#include "scene/base/UT_SharedPtr.h"
#include "scene/metadata/PIO_Metadata.h"

#include <QString>

#include <list>
#include <vector>

/// How the layers of a panel are exported, displayed and inherited, and of what kind they are: one entry
/// per layer name, in the order in which they came. Kept with the panel's scene.
///
/// Names are compared exactly. A name without an entry has flag word 0 and cannot be given one by a setter.
class PLOTKA_EXPORT PKC_LayerInfos : public PIO_Metadata
{
public:
    static const QString kPIO_PKMETA_Keyword;
    static const QString kPIO_PKMETA_Version;

    /// @name Flag words
    /// Masks of bits; those without a name are the application's.
    /// @{
    enum EXPORT_FLAGS : int { DefaultExport = 13 };
    enum LAYER_FLAGS : int { BackgroundLayer = 0x001, PitchModeLayer = 0x010, GroupLayer = 0x100 };
    enum DISPLAY_FLAGS : int { DefaultDisplay = 0 };
    enum INHERITED_FLAGS : int { NothingInherited = 0 };
    /// @}

    struct LayerInfo_t : UT_ShareBase {
        explicit LayerInfo_t(const QString &layerName) : name(layerName) {}

        QString name;
        EXPORT_FLAGS exportFlags = DefaultExport;
        LAYER_FLAGS layerFlags = LAYER_FLAGS(0);
        DISPLAY_FLAGS displayFlags = DefaultDisplay;
        INHERITED_FLAGS inheritedFlags = NothingInherited;
    };
    using LayerInfoList_t = std::list<UT_SharedPtr<LayerInfo_t>>;

    explicit PKC_LayerInfos(const QString &name = QString());
    PKC_LayerInfos(const QString &name, const QString &creator, const QString &version);
    /// A copy has entries of its own.
    PKC_LayerInfos(const PKC_LayerInfos &other);
    PKC_LayerInfos &operator=(const PKC_LayerInfos &other);
    ~PKC_LayerInfos() override;

    /// With at least one entry.
    bool isValid() const override;
    PIO_XML::ComponentReader *componentReader() override;
    /// Has an empty name within its container, whatever the name of this record.
    PIO_Metadata *clone() const override;
    void dumpToString(QString &text) const override;

    /// @name Entries
    /// Shared with whoever asks for them. One that is set to null through an iterator counts as none.
    /// @{
    LayerInfoList_t::iterator begin() { return m_layers.begin(); }
    LayerInfoList_t::iterator end() { return m_layers.end(); }
    LayerInfoList_t::const_iterator begin() const { return m_layers.begin(); }
    LayerInfoList_t::const_iterator end() const { return m_layers.end(); }
    void Clear();
    /// At the end of the list, in place of an entry of the same name. Null is ignored.
    void add(const UT_SharedPtr<LayerInfo_t> &layer);
    void remove(const QString &name);
    /// The first entry of that name. Without one, @p create adds one with the defaults, else the answer is null.
    UT_SharedPtr<LayerInfo_t> info(const QString &name, bool create);
    UT_SharedPtr<LayerInfo_t> info(const QString &name) const;
    /// Appends to @p found the entries whose layer flags share a bit with @p flags. Whether @p found
    /// holds anything then, be it from before.
    bool infoByLayerFlags(LAYER_FLAGS flags, std::vector<UT_SharedPtr<LayerInfo_t>> &found) const;
    /// @}

    /// @name Flags by name
    /// @{
    EXPORT_FLAGS exportFlags(const QString &name) const;
    LAYER_FLAGS layerFlags(const QString &name) const;
    DISPLAY_FLAGS displayFlags(const QString &name) const;
    INHERITED_FLAGS inheritedFlags(const QString &name) const;
    void setExportFlags(const QString &name, EXPORT_FLAGS flags);
    void setLayerFlags(const QString &name, LAYER_FLAGS flags);
    void setDisplayFlags(const QString &name, DISPLAY_FLAGS flags);
    void setInheritedFlags(const QString &name, INHERITED_FLAGS flags);
    /// @}

protected:
    void writeMetadataSubnodes(PIO_WritingContext &context) const override;

private:
    friend class LayerInfoMetadataReader;

    template <typename Flags>
    Flags flagsOf(const QString &name, Flags LayerInfo_t::*flags) const;
    template <typename Flags>
    void setFlagsOf(const QString &name, Flags LayerInfo_t::*flags, Flags value);
    static LayerInfoList_t copiesOf(const LayerInfoList_t &layers);

    LayerInfoList_t m_layers;
    unsigned int m_listChanges = 0; // entries that came or went: a reader remembers places in the list
};

inline PKC_LayerInfos::LAYER_FLAGS operator|(PKC_LayerInfos::LAYER_FLAGS left, PKC_LayerInfos::LAYER_FLAGS right)
{
    return PKC_LayerInfos::LAYER_FLAGS(int(left) | int(right));
}
