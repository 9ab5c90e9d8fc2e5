#pragma once

#include "scene/session/SC_SessionContext.h"

#include <QString>

#include <string>

class SC_Project;

/// A session for tests.
class TestSession : public SC_SessionContext
{
public:
    TestSession() : SC_SessionContext(nullptr, nullptr) { init(); }
};

/// Fills a new project with one of everything that a file keeps.
void fillWithEverything(SC_Project &project);

/// A project file's text around @p content, the first scene of which must be the top one.
QByteArray documentOf(const QByteArray &content);

/// What reading the text gives, as text: the project, or nothing, and then the report.
std::string readAsText(const QByteArray &text);
