#pragma once

#include "scene/storage/SC_FileReport.h"

#include <QString>

#include <memory>

class PKC_PlotkaProject;
class PKC_SessionContext;
class SC_Project;

/// A project opened for the length of one command.
class OpenedProject
{
public:
    /// What was wrong with the file is told on standard error, values that took a default in one line, or left in report()
    /// for the command to tell. Why it could not be opened is told always.
    enum Telling { TellReport, KeepReport };

    explicit OpenedProject(const QString &path, Telling telling = TellReport);
    OpenedProject(const OpenedProject &) = delete;
    OpenedProject &operator=(const OpenedProject &) = delete;
    ~OpenedProject();

    bool isOpen() const;
    const SC_FileReport &report() const { return m_report; }
    /// As the file has it until project() is asked for; only while the project is open, like project().
    const SC_Project &asFiled() const;
    /// Built when first asked for, which gives the panels the records that they lack.
    PKC_PlotkaProject &project();

private:
    SC_FileReport m_report;
    std::unique_ptr<PKC_SessionContext> m_session;
};

/// Tells what a report holds, the first hundred entries one by one.
void tellReport(const SC_FileReport &report);
