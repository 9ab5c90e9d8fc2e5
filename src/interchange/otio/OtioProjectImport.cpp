#include "interchange/otio/OtioProjectImport.h"

#include "interchange/ImportNotes_p.h"
#include "interchange/LooseJson_p.h"
#include "interchange/otio/OtioNode_p.h"
#include "interchange/otio/OtioProjectBuilder_p.h"
#include "scene/project/SC_Project.h"
#include "scene/session/SC_SessionContext.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <utility>

namespace
{

/// While it lives, edits of the project queue no news: nobody knows the project yet.
class SilentEdits
{
public:
    explicit SilentEdits(SC_ProjectCommon *common) : m_common(common), m_changeManager(common->changeManager())
    {
        m_common->setChangeManager(nullptr);
    }
    ~SilentEdits() { m_common->setChangeManager(m_changeManager); }

private:
    Q_DISABLE_COPY_MOVE(SilentEdits)
    SC_ProjectCommon *m_common;
    TUSceneChangeManager *m_changeManager;
};

/// True for what acts on a terminal instead of being shown there: controls, and what turns the direction of writing.
bool isControl(QChar unit)
{
    const char16_t code = unit.unicode();
    return unit.category() == QChar::Other_Control || (code >= 0x202A && code <= 0x202E)
        || (code >= 0x2066 && code <= 0x2069);
}

/// @p wanted as the name of a project and so of a file, which has at most 255 bytes with all that is appended to it.
QString fileNameOf(const QString &wanted)
{
    constexpr qsizetype mostBytes = 200;
    QString name = OtioText::storable(wanted).simplified();
    name.removeIf(isControl);
    name.replace(u'/', u'-');
    while (name.startsWith(u'.') || name.startsWith(u' ')) // would be hidden, or another folder
        name.remove(0, 1);
    name.truncate(mostBytes);
    while (name.toUtf8().size() > mostBytes)
        name.chop(name.size() > 1 && name.back().isLowSurrogate() ? 2 : 1);
    // The first cut may have left half of a pair.
    return OtioText::storable(name).trimmed();
}

QString projectNameOf(const QString &cutName, const QString &fallbackName, ImportNotes &notes)
{
    const QString name = fileNameOf(cutName);
    if (name != cutName) {
        notes.change("project-name", QString(),
            OtioText::tr("the cut's name %1 is not one of a file and is changed").arg(OtioText::brief(cutName)));
    }
    if (!name.isEmpty())
        return name;
    const QString fallback = fileNameOf(fallbackName);
    return fallback.isEmpty() ? QStringLiteral("Untitled") : fallback;
}

OtioProjectImport failed(const QString &message)
{
    OtioProjectImport result;
    result.error.message = message;
    return result;
}

} // namespace

OtioProjectImport OtioImport::importInto(SC_SessionContext &session, const QByteArray &bytes, const QString &directory,
    const OtioOptions &options, const QString &fallbackName)
{
    if (directory.isEmpty())
        return failed(OtioText::tr("no folder is given for the project"));
    OtioReading reading = read(bytes, options);
    OtioProjectImport result;
    result.error = reading.error;
    result.notes = std::move(reading.notes);
    if (result.hasError())
        return result;

    ImportNotes notes(options.onNote);
    const QString name = projectNameOf(reading.plan.name, fallbackName, notes);
    session.releaseProject(); // also what was built on it
    result.project = session.newProject(directory, name);
    if (!result.project)
        return failed(OtioText::tr("a project %1 cannot be made").arg(name));
    const SilentEdits silent(result.project->projectCommon());
    OtioProjectBuilder(*result.project, notes).build(reading.plan);
    std::vector<ImportNote> more = notes.take();
    std::move(more.begin(), more.end(), std::back_inserter(result.notes));
    return result;
}

OtioProjectImport OtioImport::importFileInto(
    SC_SessionContext &session, const QString &path, const QString &directory, const OtioOptions &options)
{
    QFile file(path);
    if (QFileInfo(path).isDir())
        return failed(OtioText::tr("it is a folder"));
    if (!file.open(QIODevice::ReadOnly))
        return failed(file.errorString());
    // Bounded by what was read and not by what the file says of itself: a device has no size.
    QByteArray bytes;
    while (bytes.size() <= LooseJson::mostBytes) {
        const QByteArray block = file.read(qint64(1024) * 1024);
        if (block.isEmpty())
            break;
        bytes += block;
    }
    if (file.error() != QFileDevice::NoError)
        return failed(file.errorString());
    return importInto(session, bytes, directory, options, QFileInfo(path).completeBaseName());
}
