#pragma once

#include <QCoreApplication>

/// Texts of listings and checks for people, in one context for translators.
struct ListingText {
    Q_DECLARE_TR_FUNCTIONS(listing)
};
