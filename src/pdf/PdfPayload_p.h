#pragma once

#include <QByteArray>

class PKC_Property;

/// One property as bytes: a mark, a number and what PKC_Property::store() streams.
namespace PdfPayload
{

/// Empty for a property that no stream keeps.
QByteArray bytesOf(const PKC_Property &property);

/// Loads what bytesOf() gave, or the property alone in a stream of the old version, as it was kept before there was a
/// mark. Bytes that are neither, or that hold what bytesOf() never gives, change nothing.
void load(const QByteArray &bytes, PKC_Property &property);

} // namespace PdfPayload
