#include "support/TestRun.h"

#include <QCoreApplication>
#include <QtGlobal>

#include <gtest/gtest.h>

namespace
{

void failOnWarning(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ADD_FAILURE() << "unexpected message: " << text.toStdString();
}

} // namespace

int runTests(QCoreApplication &app, int &argc, char **argv)
{
    app.setApplicationName(QStringLiteral("plotka-tests"));
    qInstallMessageHandler(failOnWarning);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
