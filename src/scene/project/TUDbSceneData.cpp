#include "scene/project/TUDbSceneData.h"

#include <QDir>

#include <utility>

TUDbSceneData::TUDbSceneData(const QString &projectDir, QString sceneName) :
    m_projectDir(QDir::cleanPath(projectDir)), m_sceneName(std::move(sceneName))
{
}

QString TUDbSceneData::filePath() const
{
    return m_projectDir + u'/' + m_sceneName + QStringLiteral(".plotka");
}

void TUDbSceneData::setLocation(const QString &projectDir, const QString &sceneName)
{
    m_projectDir = QDir::cleanPath(projectDir);
    m_sceneName = sceneName;
}
