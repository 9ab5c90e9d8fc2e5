#pragma once

#include <QVariant>

class QDataStream;

/// The values of properties in streams.
///
/// A stream of QVariant can name any type that the program knows, pictures and types of plug-ins included, stand lists
/// in lists without end and ask for as much memory as it likes. Only the types that properties turn into text are kept,
/// and maps; no count is believed before what it counts has come.
namespace PropertyStream
{

/// Values may stand in this many lists and maps around them.
constexpr int depthLimit = 32;

/// Whether read() gives @p value back once it was streamed.
bool keeps(const QVariant &value);

/// What a stream of any version holds as a QVariant. Anything that is not kept makes the stream corrupt.
QVariant read(QDataStream &stream);

} // namespace PropertyStream
