#pragma once

#include "listing/TimelineItem.h"
#include "plotka_listing_export.h"

#include <QVariant>

#include <utility>
#include <vector>

/// An item as keys and values, the same for JSON and CSV. Every item has every key, in this order; what it does not
/// have is null.
using ItemFields = std::vector<std::pair<QString, QVariant>>;

PLOTKA_LISTING_EXPORT ItemFields fieldsOf(const TimelineItem &item);

/// "shot", "panel", "transition", "gap".
PLOTKA_LISTING_EXPORT QString kindText(TimelineItem::Kind kind);
