#include "scene/metadata/PIO_ComponentReader.h"

#include "scene/metadata/DB_MemFile.h"

#include <QByteArray>
#include <QXmlAttributes>

namespace PIO_XML
{

ComponentReader::~ComponentReader() = default;

void ComponentReader::handleCDATA(const QString &) {}

bool ComponentReader::decodeBinaryAttr(const QXmlAttributes &attributes, const QString &key, DB_MemFile &file) const
{
    const QString text = attributes.value(key);
    if (text.isNull())
        return false;
    const auto decoded = QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return false;
    file = DB_MemFile(*decoded);
    return true;
}

} // namespace PIO_XML
