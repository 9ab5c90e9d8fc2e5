#include <QCoreApplication>
#include <QtGlobal>

#include <gtest/gtest.h>

namespace
{

// A warning the test did not announce is a failure of that test.
void failOnWarning(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtWarningMsg || type == QtCriticalMsg)
        ADD_FAILURE() << "unexpected message: " << text.toStdString();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("plotka-tests"));
    qInstallMessageHandler(failOnWarning);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
