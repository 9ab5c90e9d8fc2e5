#include "scene/base/whoami.h"

#include <QCoreApplication>

QString whoami::progName()
{
    const QString name = QCoreApplication::applicationName();
    return name.isEmpty() ? QStringLiteral("plotka") : name;
}
