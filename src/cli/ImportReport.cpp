#include "cli/ImportReport.h"

#include "cli/CliText.h"
#include "cli/Console.h"

QString severityText(ImportNote::Severity severity)
{
    switch (severity) {
    case ImportNote::Loss:
        return QStringLiteral("loss");
    case ImportNote::Change:
        return QStringLiteral("change");
    case ImportNote::Info:
        break;
    }
    return QStringLiteral("info");
}

namespace
{

QString lineText(const ImportNote &note)
{
    const QString item = note.item.isEmpty() ? QString() : note.item + QStringLiteral(": ");
    return severityText(note.severity) + QStringLiteral(": ") + item + note.message;
}

} // namespace

int ImportReport::count(ImportNote::Severity severity) const
{
    int sum = 0;
    for (const ImportNote &note : m_notes)
        sum += note.severity == severity ? note.count : 0;
    return sum;
}

void ImportReport::tell(ImportNote::Severity atLeast, const QString &remedy) const
{
    if (m_notes.empty())
        return;
    Console::tell(CliText::tr("notes: %1 loss, %2 change, %3 info")
                      .arg(QString::number(count(ImportNote::Loss)), QString::number(count(ImportNote::Change)),
                          QString::number(count(ImportNote::Info))));
    constexpr int mostTold = 20;
    int untold = 0;
    int told = 0;
    for (const ImportNote &note : m_notes) {
        if (note.severity >= atLeast && told < mostTold) {
            Console::tell(lineText(note));
            ++told;
        } else {
            untold += note.count; // so that what is shown and this make up what was counted
        }
    }
    if (untold > 0)
        Console::tell(CliText::tr("and %1 more; %2").arg(QString::number(untold), remedy));
}
