#pragma once

#include <QByteArray>

/// Looks through the bytes of an option before Qt decodes them: a stream of values can name any type that the program
/// knows, pictures and types of plug-ins included, and ask for as much memory as it likes.
namespace PdfPayloadCheck
{

/// Values may stand in this many lists and maps around them.
constexpr int depthLimit = 32;

/// The version of the streams in which options were kept before they had a header (that of Qt 3.3).
constexpr int oldVersion = 6;

/// Whether PKC_Property::load() of that kind of property finds all it reads in @p bytes from @p from on, in a stream of
/// that version, and only values of the types that properties turn into text. Versions other than the old one count as
/// this Qt's own.
bool isProperty(const QByteArray &bytes, qsizetype from, int propertyType, int version);

} // namespace PdfPayloadCheck
