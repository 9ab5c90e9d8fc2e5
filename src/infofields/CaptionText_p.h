#pragma once

#include "plotka_export.h"

#include <QString>

/// Captions as html and as plain text. Both work with and without a QGuiApplication, whatever the text holds, and
/// neither opens a file or an address.
namespace CaptionText
{

/// The text as html, for captions from before captions were html. Empty text and what may be html stays as it is,
/// and so does a text of more than 10,000 lines or a million characters, and one with characters that a document takes
/// for something else (U+FDD0, U+FDD1; U+FFFC where no character for private use is free to stand for it).
PLOTKA_EXPORT QString richTextOf(const QString &text);

/// The text of a caption in one line: html without its marks, and each new line a blank.
PLOTKA_EXPORT QString plainTextOf(const QString &text);

} // namespace CaptionText
