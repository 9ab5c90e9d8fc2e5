#pragma once

#include "plotka_scene_export.h"
#include "scene/metadata/PIO_RecordReader.h"
#include "scene/storage/LoadReport_p.h"

#include <QByteArray>
#include <QString>

/// What makes an XML text too expensive to read, found in one pass that costs next to nothing.
///
/// A reader spends time that grows with the square of the attributes of one element, memory for every
/// element that stands open, and both for what a document type declares.
namespace XmlBounds
{

constexpr int depthLimit = PIO_RecordReader::depthLimit;
constexpr int attributeLimit = 256;

struct Excess {
    FilePlace place;
    QString message; ///< empty when there is none
};

/// The words for an element that stands deeper.
QString deeperThan(int depth);

/// The first excess of a text in UTF-8 or another encoding in which every byte of ASCII means itself.
PLOTKA_SCENE_EXPORT Excess find(const QByteArray &text, int deepest = depthLimit);

} // namespace XmlBounds
