#pragma once

#include "plotka_scene_export.h"
#include "scene/base/UT_ShareBase.h"
#include "scene/base/UT_SharedPtr.h"

#include <QString>
#include <QStringList>

#include <utility>

class DB_MemFile;
class QXmlAttributes;

namespace PIO_XML
{

/// Receives the payload of a record, element by element. A reader never fails: what it does not
/// know it ignores.
class PLOTKA_SCENE_EXPORT ComponentReader : public UT_ShareBase
{
public:
    ComponentReader() = default;

    // The order of the virtual functions is relied on by those that derive from this class.
    ~ComponentReader() override;
    /// An element begins. Gives the reader of its children; null skips all that is inside it, its end included.
    /// An absent attribute reads as a null text, a present empty one as an empty text.
    virtual UT_SharedPtr<ComponentReader> startElement(
        const QString &nameSpace, const QString &localName, const QXmlAttributes &attributes) = 0;
    /// An element ends; told to the reader that was given its start.
    virtual bool endElement(const QString &nameSpace, const QString &localName) = 0;
    /// Text between the tags. Ignored here.
    virtual void handleCDATA(const QString &text);

    /// What could not be read since the last call, in words: a reader that never fails may still remark on what it
    /// gave a default or left out.
    QStringList takeRemarks() { return std::exchange(m_remarks, QStringList()); }

    /// Fills @p file with the bytes that PO_XmlWriter::encodeBinaryElement put into attribute @p key. False when
    /// the attribute is absent or malformed, and @p file is then unchanged.
    bool decodeBinaryAttr(const QXmlAttributes &attributes, const QString &key, DB_MemFile &file) const;

protected:
    void remark(const QString &text) { m_remarks += text; }

private:
    QStringList m_remarks;
};

} // namespace PIO_XML
