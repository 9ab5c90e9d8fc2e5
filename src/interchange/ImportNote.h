#pragma once

#include <QString>

#include <functional>

/// One thing a reader of a foreign file has to tell about what became of it.
struct ImportNote {
    /// Info: worth knowing. Change: it is there, but differs. Loss: it has no place and is gone.
    enum Severity { Info, Change, Loss };

    Severity severity = Info;
    /// A short stable word such as "transition-shortened"; programs may rely on it.
    QString code;
    /// Where in the file, for people: "track 1 (V1), item 3 (Clip-003)".
    QString item;
    QString message;
    /// How many things it speaks of.
    int count = 1;
};

/// Hears of notes one by one.
using ImportNoteListener = std::function<void(const ImportNote &)>;
