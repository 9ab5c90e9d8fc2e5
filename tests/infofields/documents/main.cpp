#include "support/TestRun.h"

#include <QByteArray>
#include <QGuiApplication>

// What html is in a document can only be asked where there are fonts; no screen is needed for it.
int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    return runTests(app, argc, argv);
}
