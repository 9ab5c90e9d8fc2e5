#pragma once

#include <QLoggingCategory>

/// "plotka.properties": what properties and profiles warn about.
Q_DECLARE_LOGGING_CATEGORY(plotkaProperties)

class QVariant;

/// The name of the value's type for a message, empty without a type; valid as long as the type is registered.
const char *typeNameOf(const QVariant &value);
