#pragma once

#include "records/RecordElement_p.h"
#include "scene/metadata/PIO_ComponentReader.h"

/// When the reader of a record lets go of it; what comes after is ignored.
enum class ReadsUntil {
    FirstEnd, ///< the first closing element, of whatever name
    OwnEnd,   ///< the closing element named as the record's type
    Released, ///< never
};

/// Reads the payload of one record, which outlives the reading. One reader serves the whole payload, and
/// an element it does not know is passed over.
template <typename Record, ReadsUntil until>
class RecordReader : public PIO_XML::ComponentReader
{
public:
    explicit RecordReader(Record *target) : m_target(target) {}

    UT_SharedPtr<ComponentReader> startElement(
        const QString &, const QString &localName, const QXmlAttributes &attributes) override
    {
        if (!m_target)
            return this;
        const RecordElement element(attributes);
        readElement(*m_target, localName, element);
        remarkOn(localName, element);
        return this;
    }

    bool endElement(const QString &, const QString &localName) override
    {
        if (m_target && isLast(localName))
            m_target = nullptr;
        return true;
    }

protected:
    virtual void readElement(Record &target, const QString &localName, const QXmlAttributes &attributes) = 0;

    /// Remarks on the attributes for which the record took a default.
    void remarkOn(const QString &localName, const RecordElement &element)
    {
        for (const QString &key : element.unreadable())
            remark(QStringLiteral("\"%1\" of the element \"%2\" is missing or cannot be read").arg(key, localName));
    }

    Record *target() const { return m_target; }

private:
    bool isLast(const QString &localName) const
    {
        return until == ReadsUntil::FirstEnd || (until == ReadsUntil::OwnEnd && localName == m_target->metaType());
    }

    Record *m_target;
};
