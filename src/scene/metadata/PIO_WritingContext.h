#pragma once

#include "plotka_scene_export.h"

#include <QStringList>

class PO_XmlWriter;

/// What a record is given to write itself with: the writer and the modes of this writing.
class PLOTKA_SCENE_EXPORT PIO_WritingContext
{
public:
    /// The writer is borrowed.
    explicit PIO_WritingContext(PO_XmlWriter &writer) : m_writer(&writer) {}

    PO_XmlWriter &xmlWriter() const { return *m_writer; }

    /// Whether a mode such as "for_drag" is on.
    bool GetAttribute(const QString &mode) const;
    void setAttribute(const QString &mode, bool on = true);

private:
    PO_XmlWriter *m_writer;
    QStringList m_modes;
};
