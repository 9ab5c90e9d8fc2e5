#pragma once

#include "plotka_interchange_export.h"

#include "interchange/ImportNote.h"
#include "interchange/otio/OtioPlan.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <vector>

/// How a cut is to be read.
struct OtioOptions {
    /// Frames per second of the storyboard instead of those of the file.
    bool hasRate = false;
    UT_FrameRate rate;
    /// Hears every note when it comes. What is answered holds but the first of each code and severity.
    ImportNoteListener onNote;
};

/// Why a file is no cut.
struct OtioError {
    QString message; ///< empty: there is none
    /// Place in the text, from 1; 0 where the text is sound and its content is not.
    int line = 0;
    int column = 0;
};

/// What came of reading a cut: a plan, or an error and an empty plan. Notes come with both.
struct OtioReading {
    OtioPlan plan;
    OtioError error;
    std::vector<ImportNote> notes;

    bool hasError() const { return !error.message.isEmpty(); }
};

/// Reads OpenTimelineIO files (.otio).
///
/// Bytes of any content give a reading: nothing throws, hangs or grows beyond a small multiple of the
/// input. docs/otio-import.md tells what becomes of what, and lists the notes.
namespace OtioImport
{

/// What @p bytes, the whole of a file, become as a storyboard.
PLOTKA_INTERCHANGE_EXPORT OtioReading read(const QByteArray &bytes, const OtioOptions &options = OtioOptions());

/// The codes that a note of severity loss can have, sorted.
PLOTKA_INTERCHANGE_EXPORT QStringList lossCodes();

} // namespace OtioImport
