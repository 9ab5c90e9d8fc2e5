#pragma once

class QCoreApplication;

/// Runs the tests that the arguments ask for, with @p app as their application, and gives the code to exit with. A
/// warning that a test did not announce is a failure of that test.
int runTests(QCoreApplication &app, int &argc, char **argv);
