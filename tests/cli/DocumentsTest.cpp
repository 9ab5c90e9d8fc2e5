#include "cli/CommandRun.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace
{

/// A command as a document shows it, and the output below it.
struct Transcript {
    QStringList arguments;
    QStringList output;
};

QString withoutIndent(const QString &line)
{
    return line.startsWith(QLatin1String("    ")) ? line.mid(4) : QString();
}

/// Those of the document's indented blocks that begin with "$ plotka".
std::vector<Transcript> transcriptsOf(const QString &path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    std::vector<Transcript> transcripts;
    bool isWithin = false;
    const QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
    for (const QString &line : lines) {
        const QString text = withoutIndent(line);
        if (text.startsWith(QLatin1String("$ plotka "))) {
            transcripts.push_back({QProcess::splitCommand(text.mid(9)), {}});
            isWithin = true;
        } else if (!line.isEmpty() && text.isEmpty()) {
            isWithin = false;
        } else if (isWithin) {
            transcripts.back().output += text;
        }
    }
    for (Transcript &transcript : transcripts) {
        while (!transcript.output.isEmpty() && transcript.output.last().isEmpty())
            transcript.output.removeLast();
    }
    return transcripts;
}

/// What the output must look like: a line "..." stands for any lines, and ", ..." for the rest of an item of JSON.
QString patternOf(const QStringList &output)
{
    QString pattern;
    for (const QString &line : output) {
        if (line.trimmed() == QLatin1String("..."))
            pattern += QStringLiteral("(?:.*\\n)*?");
        else
            pattern += QRegularExpression::escape(line).replace(
                           QRegularExpression::escape(QStringLiteral(", ...")), QStringLiteral(", .*"))
                + QStringLiteral("\\n");
    }
    return QRegularExpression::anchoredPattern(pattern);
}

void expectTrue(const QString &document, std::size_t count)
{
    const ProjectFolder folder;
    ASSERT_TRUE(QFile::link(QStringLiteral(PLOTKA_EXAMPLES), folder.path(QStringLiteral("examples"))));
    const std::vector<Transcript> transcripts = transcriptsOf(document);
    EXPECT_EQ(transcripts.size(), count);
    for (const Transcript &transcript : transcripts) {
        QProcess plotka;
        plotka.setWorkingDirectory(folder.path(QString()));
        plotka.start(QStringLiteral(PLOTKA_COMMAND), transcript.arguments);
        ASSERT_TRUE(plotka.waitForFinished());
        const QString output = QString::fromUtf8(plotka.readAllStandardOutput());
        const QRegularExpression pattern(patternOf(transcript.output));
        EXPECT_TRUE(pattern.match(output).hasMatch())
            << "plotka " << transcript.arguments.join(u' ').toStdString() << " prints\n"
            << output.toStdString() << "and not\n"
            << transcript.output.join(u'\n').toStdString();
    }
}

} // namespace

TEST(Documents, ShowWhatTheCommandPrints)
{
    expectTrue(QStringLiteral(PLOTKA_EXAMPLES "/../docs/command.md"), 8);
}

TEST(Documents, BeginWithACutThatBecomesATimeline)
{
    expectTrue(QStringLiteral(PLOTKA_EXAMPLES "/../README.md"), 2);
}

TEST(Documents, ShowTheExampleAsItIs)
{
    const auto contentOf = [](const QString &path) {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
        return file.readAll();
    };
    const QByteArray program = contentOf(QStringLiteral(PLOTKA_EXAMPLES "/walk_panels.cpp"));
    const QByteArray main = program.mid(program.indexOf("int main("));
    EXPECT_TRUE(contentOf(QStringLiteral(PLOTKA_EXAMPLES "/../README.md")).contains("```cpp\n" + main + "```"));
}
