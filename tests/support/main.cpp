#include "support/TestRun.h"

#include <QCoreApplication>

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    return runTests(app, argc, argv);
}
