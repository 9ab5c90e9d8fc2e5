#pragma once

#include <QString>

class PIO_Metadata;

/// A record for people: a line with its type, name, creator and version, then its debug text, and where that says
/// nothing of its own the payload's XML. Each line is indented and ends with a line feed.
QString recordText(const PIO_Metadata &record);
