#include "scene/metadata/PIO_RecordReader.h"

#include "scene/base/UT_SharedPtr.h"
#include "scene/metadata/PIO_ComponentReader.h"
#include "scene/metadata/PIO_MetadataFactory.h"
#include "scene/metadata/PIO_MetadataGeneric.h"
#include "scene/metadata/PIO_MetadataUnknown.h"

#include <QXmlAttributes>
#include <QXmlStreamReader>

#include <utility>
#include <vector>

namespace
{

/// A present empty attribute is empty, never null: readers tell it from an absent one.
QString textOf(QStringView value)
{
    return value.isEmpty() ? QStringLiteral("") : value.toString();
}

QString localNameOf(QStringView qualifiedName)
{
    return qualifiedName.mid(qualifiedName.lastIndexOf(QLatin1Char(':')) + 1).toString();
}

QXmlAttributes attributesOf(const QXmlStreamReader &xml)
{
    QXmlAttributes result;
    const QXmlStreamAttributes present = xml.attributes();
    for (const QXmlStreamAttribute &attribute : present) {
        const QString name = localNameOf(attribute.qualifiedName());
        result.append(name, QString(), name, textOf(attribute.value()));
    }
    return result;
}

PIO_MetadataUnknown::Attributes allOf(const QXmlStreamAttributes &attributes)
{
    PIO_MetadataUnknown::Attributes all;
    for (const QXmlStreamAttribute &attribute : attributes)
        all.emplace_back(attribute.qualifiedName().toString(), textOf(attribute.value()));
    return all;
}

void appendEscaped(QString &markup, QStringView text, bool isAttribute)
{
    for (const QChar unit : text) {
        switch (unit.unicode()) {
        case u'&':
            markup += QLatin1String("&amp;");
            break;
        case u'<':
            markup += QLatin1String("&lt;");
            break;
        case u'>':
            markup += QLatin1String("&gt;");
            break;
        case u'\r':
            markup += QLatin1String("&#13;");
            break;
        case u'"':
            markup += isAttribute ? QLatin1String("&quot;") : QLatin1String("\"");
            break;
        case u'\n':
            markup += isAttribute ? QLatin1String("&#10;") : QLatin1String("\n");
            break;
        case u'\t':
            markup += isAttribute ? QLatin1String("&#9;") : QLatin1String("\t");
            break;
        default:
            markup += unit;
        }
    }
}

/// Collects the content of an element as XML again. Start tags stay open until it is known
/// whether anything follows, so that an element without content keeps its short form.
class MarkupCollector
{
public:
    void startElement(const QXmlStreamReader &xml)
    {
        closeTag();
        put(QLatin1String("<"), xml.qualifiedName(), QLatin1String(""));
        const QXmlStreamAttributes present = xml.attributes();
        for (const QXmlStreamAttribute &attribute : present) {
            put(QLatin1String(" "), attribute.qualifiedName(), QLatin1String("=\""));
            appendEscaped(m_markup, attribute.value(), true);
            m_markup.append(QLatin1Char('"'));
        }
        m_tagIsOpen = true;
    }

    void endElement(const QXmlStreamReader &xml)
    {
        if (m_tagIsOpen)
            m_markup.append(QLatin1String("/>"));
        else
            put(QLatin1String("</"), xml.qualifiedName(), QLatin1String(">"));
        m_tagIsOpen = false;
    }

    void other(const QXmlStreamReader &xml)
    {
        if (xml.isComment()) {
            closeTag();
            put(QLatin1String("<!--"), xml.text(), QLatin1String("-->"));
        } else if (xml.isProcessingInstruction()) {
            closeTag();
            const bool hasData = !xml.processingInstructionData().isEmpty();
            put(QLatin1String("<?"), xml.processingInstructionTarget(), QLatin1String(hasData ? " " : ""));
            put(QLatin1String(""), xml.processingInstructionData(), QLatin1String("?>"));
        } else if (xml.isCDATA()) {
            closeTag();
            put(QLatin1String("<![CDATA["), xml.text(), QLatin1String("]]>"));
        } else if (xml.isCharacters()) {
            closeTag();
            appendEscaped(m_markup, xml.text(), false);
        }
    }

    QString markup() const { return m_markup; }

private:
    void put(QLatin1String before, QStringView text, QLatin1String after)
    {
        m_markup.append(before).append(text).append(after);
    }

    void closeTag()
    {
        if (m_tagIsOpen)
            m_markup.append(QLatin1Char('>'));
        m_tagIsOpen = false;
    }

    QString m_markup;
    bool m_tagIsOpen = false;
};

/// Feeds the elements of a payload to readers. The readers of the elements that are open stand in
/// a vector, so that deep nesting costs no stack.
class PayloadFeeder
{
public:
    explicit PayloadFeeder(UT_SharedPtr<PIO_XML::ComponentReader> reader) { m_readers.push_back(reader); }

    bool sawElement() const { return m_sawElement; }
    std::vector<PIO_RecordResult::Remark> takeRemarks(const QXmlStreamReader &xml)
    {
        if (m_furtherRemarks > 0)
            addRemark(xml, QStringLiteral("and %1 more like these").arg(m_furtherRemarks), m_furtherRemarks);
        return std::move(m_remarks);
    }

    void startElement(const QXmlStreamReader &xml)
    {
        m_sawElement = true;
        UT_SharedPtr<PIO_XML::ComponentReader> children;
        // A copy: the reader stays alive for this call whatever it does.
        if (const UT_SharedPtr<PIO_XML::ComponentReader> reader = m_readers.back()) {
            children = reader->startElement(QString(), localNameOf(xml.qualifiedName()), attributesOf(xml));
            collectRemarks(*reader, xml);
        }
        m_readers.push_back(children);
    }

    void endElement(const QXmlStreamReader &xml)
    {
        const bool accepted = bool(m_readers.back());
        m_readers.pop_back();
        if (!accepted)
            return;
        const UT_SharedPtr<PIO_XML::ComponentReader> reader = m_readers.back();
        reader->endElement(QString(), localNameOf(xml.qualifiedName()));
        collectRemarks(*reader, xml);
    }

    void other(const QXmlStreamReader &xml)
    {
        if (xml.isCharacters() && !xml.isWhitespace() && m_readers.back())
            m_readers.back()->handleCDATA(xml.text().toString());
    }

private:
    std::vector<UT_SharedPtr<PIO_XML::ComponentReader>> m_readers;
    void collectRemarks(PIO_XML::ComponentReader &reader, const QXmlStreamReader &xml)
    {
        const QStringList remarks = reader.takeRemarks();
        for (const QString &text : remarks) {
            if (m_remarks.size() < PIO_RecordReader::remarkLimit)
                addRemark(xml, text);
            else
                ++m_furtherRemarks;
        }
    }

    void addRemark(const QXmlStreamReader &xml, const QString &text, qint64 count = 1)
    {
        m_remarks.push_back({xml.lineNumber(), xml.columnNumber() + 1, text, count});
    }

    std::vector<PIO_RecordResult::Remark> m_remarks;
    qint64 m_furtherRemarks = 0;
    bool m_sawElement = false;
};

/// Walks to the end of the current element. False when it nests too deep: what lies deeper was skipped.
template <typename Receiver>
bool feed(QXmlStreamReader &xml, Receiver &receiver)
{
    bool withinLimit = true;
    for (int depth = 1; !xml.atEnd();) {
        switch (xml.readNext()) {
        case QXmlStreamReader::StartElement:
            if (depth == PIO_RecordReader::depthLimit) {
                withinLimit = false;
                xml.skipCurrentElement();
                break;
            }
            ++depth;
            receiver.startElement(xml);
            break;
        case QXmlStreamReader::EndElement:
            if (--depth == 0)
                return withinLimit;
            receiver.endElement(xml);
            break;
        default:
            receiver.other(xml);
        }
    }
    return withinLimit;
}

} // namespace

PIO_RecordResult PIO_RecordReader::read(QXmlStreamReader &xml)
{
    PIO_RecordResult result;
    result.line = xml.lineNumber();
    result.column = xml.columnNumber() + 1; // the stream counts columns from 0

    const QXmlStreamAttributes attributes = xml.attributes();
    const auto text = [&attributes](QLatin1String name) {
        return attributes.hasAttribute(name) ? textOf(attributes.value(name)) : QString();
    };
    const QString type = text(QLatin1String("type"));
    if (type.isEmpty()) {
        result.message = QStringLiteral("a record without a type");
        xml.skipCurrentElement();
        return result;
    }
    const QString name = text(QLatin1String("name"));
    const QString creator = text(QLatin1String("creator"));
    const QString version = text(QLatin1String("version"));

    bool withinLimit = true;
    result.record.reset(PIO_MetadataFactory::instance()->createMeta(type, name, creator, version));
    if (!result.record) {
        MarkupCollector collector;
        withinLimit = feed(xml, collector);
        result.record = std::make_unique<PIO_MetadataUnknown>(allOf(attributes), collector.markup());
    } else {
        PayloadFeeder feeder(result.record->componentReader());
        withinLimit = feed(xml, feeder);
        result.remarks = feeder.takeRemarks(xml);
        const auto *generic = dynamic_cast<const PIO_MetadataGeneric *>(result.record.get());
        if (generic && !generic->isValid() && feeder.sawElement())
            result.message = QStringLiteral("the record has no readable value");
    }
    if (!withinLimit) {
        result.record.reset();
        result.message = QStringLiteral("the record nests deeper than %1 elements").arg(depthLimit);
    }
    return result;
}
