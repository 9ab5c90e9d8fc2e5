#pragma once

#include "plotka_listing_export.h"

#include <QString>

/// A finite number in the C locale with as many digits as read back equal. Only what is huge or
/// tiny has an exponent, so that a frame is a whole number: "100000" and not "1e+05".
PLOTKA_LISTING_EXPORT QString numberText(double number);
