#pragma once

#include <QString>

/// How many columns of a terminal a text takes: two for what East Asian scripts and emoji draw wide, none for what
/// combines with the character before it.
namespace DisplayWidth
{

int of(const QString &text);

/// The text as it may be shown: control characters, which could move the cursor or hide what follows, and what turns
/// the direction of writing become U+FFFD.
QString printable(const QString &text);

/// As much of the text as fits.
QString cut(const QString &text, int columns);
/// The same, but what is cut ends in an ellipsis, which counts.
QString fitted(const QString &text, int columns);

/// Fitted, and filled up with spaces.
QString leftAligned(const QString &text, int columns);
QString rightAligned(const QString &text, int columns);

} // namespace DisplayWidth
