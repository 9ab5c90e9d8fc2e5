#pragma once

#include "scene/storage/SC_FileReport.h"

class QXmlStreamReader;

/// A place in the file that is being read.
struct FilePlace {
    qint64 line = 0;
    qint64 column = 0;

    static FilePlace of(const QXmlStreamReader &xml);
};

/// Tells what is wrong with one file. A file that is wrong everywhere is told of in so many entries only.
class LoadReport
{
public:
    static constexpr int warningLimit = 1000;

    LoadReport(QString filePath, SC_FileReport &report);

    void warn(FilePlace place, const QString &item, const QString &message);
    /// @p count is how many the remark stands for.
    void remark(FilePlace place, const QString &item, const QString &message, qint64 count);
    /// There will be no project. Only the first reason is told.
    void fail(FilePlace place, const QString &message);
    bool hasFailed() const { return m_failed; }

    /// Tells how many warnings and remarks were not told.
    void close();

private:
    QString m_filePath;
    SC_FileReport &m_report;
    qint64 m_warnings = 0;
    int m_remarks = 0;
    qint64 m_remarksLeftOut = 0;
    bool m_failed = false;
};
