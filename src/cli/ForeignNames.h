#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// Names of files that are not in UTF-8, which no text can hold.
///
/// What they name can be read: it is reached through a link whose name can be told, in a folder that goes with this object.
class ForeignNames
{
public:
    /// The arguments of the program as texts. One that is not in UTF-8 becomes the path of such a link, or a text that
    /// names no file where it names none.
    QStringList decode(int count, const char *const *arguments);

    /// True for a path that decode() made: what is written there would be told of under a name that goes.
    static bool isLink(const QString &path);

private:
    QString linkTo(const char *name, const QString &readable);

    std::unique_ptr<QTemporaryDir> m_links; // made when first needed
};
