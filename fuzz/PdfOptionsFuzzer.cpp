#include "pdf/PKC_PdfOptions.h"
#include "scene/metadata/PIO_ComponentReader.h"
#include "scene/metadata/PIO_WritingContext.h"
#include "scene/metadata/PO_XmlWriter.h"

#include <QDomDocument>
#include <QXmlAttributes>
#include <QXmlStreamReader>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace
{

/// Properties say what they cannot do; nobody else has a reason to complain.
void abortOnForeignWarning(QtMsgType, const QMessageLogContext &context, const QString &)
{
    if (!context.category || std::strcmp(context.category, "plotka.properties") != 0)
        std::abort();
}

/// Gives access to what a record writes.
class Options : public PKC_PdfOptions
{
public:
    QByteArray written() const
    {
        PO_XmlWriter writer;
        PIO_WritingContext context(writer);
        writeMetadataSubnodes(context);
        return writer.bytes();
    }

    void read(const QByteArray &payload)
    {
        const UT_SharedPtr<PIO_XML::ComponentReader> reader(componentReader());
        QXmlStreamReader xml(payload);
        while (!xml.atEnd()) {
            const QXmlStreamReader::TokenType token = xml.readNext();
            if (token == QXmlStreamReader::StartElement) {
                QXmlAttributes attributes;
                const QXmlStreamAttributes present = xml.attributes();
                for (const QXmlStreamAttribute &attribute : present) {
                    const QString key = attribute.name().toString();
                    attributes.append(key, QString(), key, attribute.value().toString());
                }
                reader->startElement(QString(), xml.name().toString(), attributes);
            } else if (token == QXmlStreamReader::EndElement) {
                reader->endElement(QString(), xml.name().toString());
            }
        }
    }
};

/// All that can be asked of a property.
void use(PKC_Property &property)
{
    const std::unique_ptr<PKC_Property> clone(property.clone());
    clone->regenarationScript(property.name());
    property.setReadOnly(false);
    property.setValueFromString(property.valueToString());
    property.validate(true);
    property.toColor();
    property.toDouble();
    QDomDocument document;
    QDomElement root = document.createElement(QStringLiteral("root"));
    document.appendChild(root);
    const bool isStored = property.store(document, root);
    QDomDocument again;
    if (!again.setContent(document.toByteArray()) || again.documentElement().hasChildNodes() != isStored)
        std::abort();
}

} // namespace

// The bytes of one option, the first of which says of which kind it is: what is taken comes back from what it writes, and
// every text can be made of it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    qInstallMessageHandler(abortOnForeignWarning);
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, static_cast<qsizetype>(size) - 1);
    const QByteArray kind = QByteArray::number(data[0] % 6);
    Options options;
    options.read(QByteArray("<option name='a' type='") + kind + "'><value data='" + bytes.toBase64() + "'/></option>");
    const QByteArray saved = options.written();
    if (Options(options).written() != saved)
        std::abort();
    Options back;
    back.read(saved);
    if (back.written() != saved)
        std::abort();
    std::list<PKC_Property *> properties;
    back.pdfOptions().getAllProperties(properties);
    for (PKC_Property *property : properties)
        use(*property);
    return 0;
}
