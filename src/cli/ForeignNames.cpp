#include "cli/ForeignNames.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <climits>
#include <cstdlib>

#include <unistd.h>

namespace
{

QString linksPrefix()
{
    return QDir::tempPath() + QStringLiteral("/plotka-names-");
}

} // namespace

QStringList ForeignNames::decode(int count, const char *const *arguments)
{
    QStringList texts;
    for (int i = 0; i < count; ++i) {
        QStringDecoder utf8(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        const QString text = utf8(QByteArrayView(arguments[i]));
        texts += utf8.hasError() ? linkTo(arguments[i], text) : text;
    }
    return texts;
}

bool ForeignNames::isLink(const QString &path)
{
    return path.startsWith(linksPrefix());
}

/// The path of a new link of that readable name; the readable text itself when nothing is there to be linked to.
QString ForeignNames::linkTo(const char *name, const QString &readable)
{
    char target[PATH_MAX];
    if (!realpath(name, target))
        return readable;
    if (!m_links)
        m_links = std::make_unique<QTemporaryDir>(linksPrefix() + QStringLiteral("XXXXXX"));
    // Two names may read the same, and the link is called as what it leads to.
    const QString folder = m_links->filePath(QString::number(QDir(m_links->path()).count()));
    const QString link = folder + u'/' + QFileInfo(readable).fileName();
    if (!QDir().mkdir(folder) || symlink(target, QFile::encodeName(link).constData()) != 0)
        return readable;
    return link;
}
