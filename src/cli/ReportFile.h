#pragma once

#include "interchange/ImportNote.h"

#include <QSaveFile>
#include <QString>
#include <QTemporaryFile>

/// The report of an import as JSON: all notes, each put on the disk when it comes, so that it takes no memory how many there are.
///
/// A file is there only once it is committed. What is no regular file (a pipe, the standard output) is written to then.
class ReportFile
{
public:
    /// Without a path there is nothing to write, and that succeeds.
    explicit ReportFile(const QString &path);

    void add(const ImportNote &note);

    /// All of it but the last step, or all that can be done before it. False when there is a problem.
    bool prepare(const QString &input, const QString &projectFile);
    bool commit();

    /// What went wrong, with file and reason.
    const QString &problem() const { return m_problem; }

private:
    bool writeTo(QIODevice &device);
    bool fail(const QIODevice &device);

    QString m_path;
    QString m_problem;
    QByteArray m_before; // what stands before and after the notes
    QByteArray m_after;
    QTemporaryFile m_notes;
    QSaveFile m_file;
    bool m_isRegular;
    bool m_isSpooled = true;
};
