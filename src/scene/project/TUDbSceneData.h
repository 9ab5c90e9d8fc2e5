#pragma once

#include "plotka_scene_export.h"

#include <QByteArray>
#include <QString>

/// Where a project lives.
class PLOTKA_SCENE_EXPORT TUDbSceneData
{
public:
    TUDbSceneData(const QString &projectDir, QString sceneName);

    /// The project's name.
    QString sceneName() const { return m_sceneName; }
    /// The project's directory, without a slash at its end.
    QString projectDir() const { return m_projectDir; }
    /// projectDir + "/" + sceneName + ".plotka".
    QString filePath() const;

    /// Digest of the file as it was last read or written by this project; empty before that.
    QByteArray fileDigest() const { return m_fileDigest; }
    void setFileDigest(const QByteArray &digest) { m_fileDigest = digest; }

    void setLocation(const QString &projectDir, const QString &sceneName);

private:
    QString m_projectDir;
    QString m_sceneName;
    QByteArray m_fileDigest;
};
