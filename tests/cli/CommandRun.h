#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

class Storyboard;

/// What a run of the built command left behind.
struct CommandRun {
    int exitCode = -1; ///< -1 when it crashed
    QByteArray output;
    QByteArray errors;

    /// The output as an object; empty when it is not one.
    QJsonObject json() const;
};

/// Runs the command as a process, without a terminal.
CommandRun runPlotka(const QStringList &arguments, const QByteArray &input = QByteArray());
CommandRun runProgram(const QString &program, const QStringList &arguments, const QByteArray &input = QByteArray());

/// Projects in a folder that goes with the test.
class ProjectFolder
{
public:
    QString path(const QString &name) const { return m_folder.filePath(name); }

    /// Saves the storyboard as <name>.plotka in a folder of its own and answers the file's path.
    QString save(const Storyboard &board, const QString &name = QStringLiteral("Board")) const;
    /// The same with another content.
    QString write(const QString &name, const QByteArray &content) const;

private:
    QTemporaryDir m_folder;
};
