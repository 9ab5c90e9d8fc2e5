#pragma once

#include <QMap>
#include <QString>
#include <QVariant>

#include <optional>

/// The texts that the values of properties become, and back.
namespace PropertyText
{

/// The text that stands in XML; warns and gives an empty one for a type that has none.
QString textOf(const QVariant &value);
/// What @p text says to a property that holds @p current, or nothing, with a warning, when the type of @p current is
/// not read from text. A number that cannot be read is 0.
std::optional<QVariant> valueOf(const QVariant &current, const QString &text);

/// @name Script source
/// Warns and gives an empty text for a type that has none.
/// @{
QString scriptOf(const QVariant &value);
/// Keys and values in turn.
QString scriptOf(const QMap<QString, QVariant> &values);
QString scriptOf(bool value);
/// @}

/// Whether an element may be named so.
bool isXmlName(const QString &text);
/// @p text without the characters that no XML file may hold.
QString xmlTextOf(const QString &text);

} // namespace PropertyText
