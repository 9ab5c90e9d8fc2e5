#pragma once

#include "plotka_interchange_export.h"

#include "interchange/JsonOutline_p.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

/// JSON as programs really write it: NaN and infinities, integers of any length, a byte order mark.
///
/// A pass over the tokens replaces what JSON does not know by what it does, outside of strings
/// only, and bounds size, depth and count; the result goes to QJsonDocument.
struct PLOTKA_INTERCHANGE_EXPORT LooseJson {
    static constexpr qsizetype mostBytes = qsizetype(256) * 1024 * 1024;
    static constexpr int mostDepth = 512;
    static constexpr qsizetype mostValues = 10'000'000;

    /// Reads an object. Never fails for any input: what cannot be read has an error and an empty root.
    static LooseJson parse(const QByteArray &bytes);

    bool hasError() const { return !error.isEmpty(); }

    QJsonObject root;
    /// What was read, without byte order mark, and where the objects of the tree stand in it.
    QByteArray text;
    JsonOutline outline;
    QString error;
    /// Place of the error, both from 1; columns count characters. 0 without an error.
    int line = 0;
    int column = 0;
    /// NaN, infinities and numbers too large for a double; each reads as null.
    int notFinite = 0;
    /// Integers beyond 64 bits; each reads as the nearest double.
    int longIntegers = 0;
};
