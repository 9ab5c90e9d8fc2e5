#pragma once

#include <QString>

/// Html of which only what decides about the plain text is left: text, paragraphs, lists, tables, places of images, and
/// whether blanks count.
///
/// Laying out html asks for fonts, which a program without a QGuiApplication does not have, and a few bytes of it can
/// ask for a table with a billion cells or elements nested a million deep.
namespace HarmlessHtml
{

QString reduced(const QString &html);

} // namespace HarmlessHtml
