#pragma once

#include "plotka_listing_export.h"

#include <QString>

/// What a text may hold that acts on whatever shows it.
namespace TextSafety
{

/// True for what moves a cursor, ends a line or turns the direction of writing instead of being shown: the controls U+0000
/// to U+001F and U+007F to U+009F, the separators of lines and paragraphs, and embeddings, overrides and isolates of
/// direction.
PLOTKA_LISTING_EXPORT bool isActing(char32_t character);

/// "\u009b".
PLOTKA_LISTING_EXPORT QString escape(QChar character);

} // namespace TextSafety
