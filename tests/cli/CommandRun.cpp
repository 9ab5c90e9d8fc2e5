#include "cli/CommandRun.h"

#include "support/Storyboard.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>

#include <gtest/gtest.h>

QJsonObject CommandRun::json() const
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(output, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << error.errorString().toStdString() << "\n"
                                                     << output.toStdString();
    return document.object();
}

CommandRun runPlotka(const QStringList &arguments, const QByteArray &input)
{
    return runProgram(QStringLiteral(PLOTKA_COMMAND), arguments, input);
}

CommandRun runProgram(const QString &program, const QStringList &arguments, const QByteArray &input)
{
    QProcess process;
    process.start(program, arguments);
    process.write(input);
    process.closeWriteChannel();
    constexpr int patience = 120'000;
    EXPECT_TRUE(process.waitForFinished(patience)) << process.errorString().toStdString();
    CommandRun run;
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
}

QString ProjectFolder::save(const Storyboard &board, const QString &name) const
{
    const QString file = path(QStringLiteral("%1/%1.plotka").arg(name));
    EXPECT_TRUE(board.session().saveProjectAs(file)) << file.toStdString();
    return file;
}

QString ProjectFolder::write(const QString &name, const QByteArray &content) const
{
    const QString file = path(name);
    QDir().mkpath(QFileInfo(file).path());
    QFile out(file);
    EXPECT_TRUE(out.open(QIODevice::WriteOnly) && out.write(content) == content.size()) << file.toStdString();
    return file;
}
