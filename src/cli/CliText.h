#pragma once

#include <QCoreApplication>

/// Texts of the command for people, in one context for translators.
struct CliText {
    Q_DECLARE_TR_FUNCTIONS(plotka)
};
