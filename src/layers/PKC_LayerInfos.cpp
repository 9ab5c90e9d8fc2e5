#include "layers/PKC_LayerInfos.h"

#include "records/RecordAttributes_p.h"
#include "records/RecordReader_p.h"
#include "scene/base/whoami.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QHash>
#include <QXmlAttributes>

#include <algorithm>
#include <memory>
#include <utility>

namespace
{

const QString kLayer = QStringLiteral("layer");
const QString kName = QStringLiteral("name");
const QString kExportFlag = QStringLiteral("exportFlag");
const QString kLayerFlag = QStringLiteral("layerFlag");
const QString kDisplayFlag = QStringLiteral("displayFlag");
const QString kParentFlag = QStringLiteral("parentFlag");

using LayerPtr = UT_SharedPtr<PKC_LayerInfos::LayerInfo_t>;

template <typename Flags>
bool readFlags(const QXmlAttributes &attributes, const QString &key, Flags &flags)
{
    int value = 0;
    if (!RecordAttributes::readInt(attributes, key, value))
        return false;
    flags = Flags(value);
    return true;
}

/// An absent or empty attribute keeps the default.
template <typename Flags>
bool readOptionalFlags(const QXmlAttributes &attributes, const QString &key, Flags &flags)
{
    return attributes.value(key).isEmpty() || readFlags(attributes, key, flags);
}

/// Null when a number is bad.
LayerPtr layerOf(const QXmlAttributes &attributes)
{
    const LayerPtr layer(new PKC_LayerInfos::LayerInfo_t(attributes.value(kName)));
    const bool isGood = readFlags(attributes, kExportFlag, layer->exportFlags)
        && readFlags(attributes, kLayerFlag, layer->layerFlags)
        && readOptionalFlags(attributes, kDisplayFlag, layer->displayFlags)
        && readOptionalFlags(attributes, kParentFlag, layer->inheritedFlags);
    return isGood ? layer : LayerPtr();
}

bool isNamed(const LayerPtr &layer, const QString &name)
{
    return layer && layer->name == name;
}

} // namespace

/// Refuses a layer with a bad number, and with it all that stands inside its element.
class LayerInfoMetadataReader : public RecordReader<PKC_LayerInfos, ReadsUntil::OwnEnd>
{
public:
    explicit LayerInfoMetadataReader(PKC_LayerInfos *infos) : RecordReader(infos) { findPlaces(*infos); }

    UT_SharedPtr<ComponentReader> startElement(
        const QString &, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (!target() || localName != kLayer)
            return this;
        const RecordElement element(attributes);
        const LayerPtr layer = layerOf(element);
        remarkOn(localName, element);
        if (!layer)
            return nullptr;
        add(*target(), layer);
        return this;
    }

protected:
    void readElement(PKC_LayerInfos &, const QString &, const QXmlAttributes &) override {}

private:
    using Place = PKC_LayerInfos::LayerInfoList_t::iterator;

    /// As PKC_LayerInfos::add, without a walk: a file may bring any number of layers.
    void add(PKC_LayerInfos &infos, const LayerPtr &layer)
    {
        if (m_listChanges != infos.m_listChanges || hasAnotherNameNow(layer->name))
            findPlaces(infos);
        if (const auto same = m_places.constFind(layer->name); same != m_places.constEnd())
            infos.m_layers.erase(*same);
        m_places.insert(layer->name, infos.m_layers.insert(infos.m_layers.end(), layer));
        m_listChanges = ++infos.m_listChanges; // another reader of the record may be under way
    }

    /// Entries are shared, so one may be renamed at any time. Under a name that no entry had it is not looked for.
    bool hasAnotherNameNow(const QString &name) const
    {
        const auto place = m_places.constFind(name);
        return place != m_places.constEnd() && !isNamed(**place, name);
    }

    void findPlaces(PKC_LayerInfos &infos)
    {
        m_places.clear();
        for (Place place = infos.begin(); place != infos.end(); ++place) {
            if (*place && !m_places.contains((*place)->name))
                m_places.insert((*place)->name, place);
        }
        m_listChanges = infos.m_listChanges;
    }

    QHash<QString, Place> m_places; // of the list as it was after m_listChanges
    unsigned int m_listChanges = 0;
};

const QString PKC_LayerInfos::kPIO_PKMETA_Keyword = QStringLiteral("layerInfos");
const QString PKC_LayerInfos::kPIO_PKMETA_Version = QStringLiteral("1.0");

PKC_LayerInfos::PKC_LayerInfos(const QString &name) : PKC_LayerInfos(name, whoami::progName(), kPIO_PKMETA_Version) {}

PKC_LayerInfos::PKC_LayerInfos(const QString &name, const QString &creator, const QString &version) :
    PIO_Metadata(kPIO_PKMETA_Keyword, name, creator, version)
{
}

PKC_LayerInfos::PKC_LayerInfos(const PKC_LayerInfos &other) : PIO_Metadata(other), m_layers(copiesOf(other.m_layers)) {}

PKC_LayerInfos &PKC_LayerInfos::operator=(const PKC_LayerInfos &other)
{
    if (this == &other)
        return *this; // its entries stay those that others share
    PIO_Metadata::operator=(other);
    m_layers = copiesOf(other.m_layers);
    ++m_listChanges;
    return *this;
}

PKC_LayerInfos::~PKC_LayerInfos() = default;

bool PKC_LayerInfos::isValid() const
{
    return std::any_of(m_layers.begin(), m_layers.end(), [](const LayerPtr &layer) { return bool(layer); });
}

PIO_XML::ComponentReader *PKC_LayerInfos::componentReader()
{
    return new LayerInfoMetadataReader(this);
}

PIO_Metadata *PKC_LayerInfos::clone() const
{
    auto copy = std::make_unique<PKC_LayerInfos>(QString(), creator(), version());
    copy->m_layers = copiesOf(m_layers);
    return copy.release();
}

void PKC_LayerInfos::dumpToString(QString &text) const
{
    PIO_Metadata::dumpToString(text);
    for (const LayerPtr &layer : m_layers) {
        if (!layer)
            continue;
        text += QStringLiteral("Layer: name=%1, exportFlags=%2, layerFlags=%3, displayFlags=%4, inheritedFlags=%5\n")
                    .arg(layer->name, QString::number(layer->exportFlags), QString::number(layer->layerFlags),
                        QString::number(layer->displayFlags), QString::number(layer->inheritedFlags));
    }
}

void PKC_LayerInfos::writeMetadataSubnodes(PIO_WritingContext &context) const
{
    PO_XmlWriter &writer = context.xmlWriter();
    writer.beginElement(kPIO_PKMETA_Keyword);
    for (const LayerPtr &layer : m_layers) {
        if (!layer)
            continue;
        writer.beginElement(kLayer);
        writer.encodeStringAttr(kName, layer->name);
        writer.encodeIntAttr(kExportFlag, layer->exportFlags);
        writer.encodeIntAttr(kLayerFlag, layer->layerFlags);
        if (layer->displayFlags != 0)
            writer.encodeIntAttr(kDisplayFlag, layer->displayFlags);
        writer.encodeIntAttr(kParentFlag, layer->inheritedFlags);
        writer.endElement();
    }
    writer.endElement();
}

void PKC_LayerInfos::Clear()
{
    m_layers.clear();
    ++m_listChanges;
}

void PKC_LayerInfos::add(const UT_SharedPtr<LayerInfo_t> &layer)
{
    if (!layer)
        return;
    const LayerPtr kept = layer; // it may be the very entry that goes
    remove(kept->name);
    m_layers.push_back(kept);
    ++m_listChanges;
}

void PKC_LayerInfos::remove(const QString &name)
{
    const auto isIt = [&name](const LayerPtr &layer) { return isNamed(layer, name); };
    const auto place = std::find_if(m_layers.begin(), m_layers.end(), isIt);
    if (place == m_layers.end())
        return;
    m_layers.erase(place);
    ++m_listChanges;
}

UT_SharedPtr<PKC_LayerInfos::LayerInfo_t> PKC_LayerInfos::info(const QString &name, bool create)
{
    LayerPtr layer = std::as_const(*this).info(name);
    if (!layer && create) {
        layer = new LayerInfo_t(name);
        add(layer);
    }
    return layer;
}

UT_SharedPtr<PKC_LayerInfos::LayerInfo_t> PKC_LayerInfos::info(const QString &name) const
{
    for (const LayerPtr &layer : m_layers) {
        if (isNamed(layer, name))
            return layer;
    }
    return nullptr;
}

bool PKC_LayerInfos::infoByLayerFlags(LAYER_FLAGS flags, std::vector<UT_SharedPtr<LayerInfo_t>> &found) const
{
    for (const LayerPtr &layer : m_layers) {
        if (layer && (layer->layerFlags & flags) != 0)
            found.push_back(layer);
    }
    return !found.empty();
}

template <typename Flags>
Flags PKC_LayerInfos::flagsOf(const QString &name, Flags LayerInfo_t::*flags) const
{
    const LayerPtr layer = info(name);
    return layer ? layer.get()->*flags : Flags(0);
}

template <typename Flags>
void PKC_LayerInfos::setFlagsOf(const QString &name, Flags LayerInfo_t::*flags, Flags value)
{
    if (const LayerPtr layer = info(name, false))
        layer.get()->*flags = value;
}

PKC_LayerInfos::EXPORT_FLAGS PKC_LayerInfos::exportFlags(const QString &name) const
{
    return flagsOf(name, &LayerInfo_t::exportFlags);
}

PKC_LayerInfos::LAYER_FLAGS PKC_LayerInfos::layerFlags(const QString &name) const
{
    return flagsOf(name, &LayerInfo_t::layerFlags);
}

PKC_LayerInfos::DISPLAY_FLAGS PKC_LayerInfos::displayFlags(const QString &name) const
{
    return flagsOf(name, &LayerInfo_t::displayFlags);
}

PKC_LayerInfos::INHERITED_FLAGS PKC_LayerInfos::inheritedFlags(const QString &name) const
{
    return flagsOf(name, &LayerInfo_t::inheritedFlags);
}

void PKC_LayerInfos::setExportFlags(const QString &name, EXPORT_FLAGS flags)
{
    setFlagsOf(name, &LayerInfo_t::exportFlags, flags);
}

void PKC_LayerInfos::setLayerFlags(const QString &name, LAYER_FLAGS flags)
{
    setFlagsOf(name, &LayerInfo_t::layerFlags, flags);
}

void PKC_LayerInfos::setDisplayFlags(const QString &name, DISPLAY_FLAGS flags)
{
    setFlagsOf(name, &LayerInfo_t::displayFlags, flags);
}

void PKC_LayerInfos::setInheritedFlags(const QString &name, INHERITED_FLAGS flags)
{
    setFlagsOf(name, &LayerInfo_t::inheritedFlags, flags);
}

PKC_LayerInfos::LayerInfoList_t PKC_LayerInfos::copiesOf(const LayerInfoList_t &layers)
{
    LayerInfoList_t copies;
    for (const LayerPtr &layer : layers) {
        if (layer)
            copies.push_back(new LayerInfo_t(*layer));
    }
    return copies;
}
