#pragma once

#include <QString>

#include <memory>

class PKC_PlotkaProject;
class PKC_SessionContext;
class SC_FileReport;
class SC_Project;

/// A project opened for the length of one command. What was wrong with its file is told on standard error.
class OpenedProject
{
public:
    explicit OpenedProject(const QString &path);
    OpenedProject(const OpenedProject &) = delete;
    OpenedProject &operator=(const OpenedProject &) = delete;
    ~OpenedProject();

    bool isOpen() const;
    /// As the file has it; only while the project is open, like project().
    const SC_Project &asFiled() const;
    /// Built when first asked for, which gives the panels the records that they lack.
    const PKC_PlotkaProject &project();

private:
    std::unique_ptr<PKC_SessionContext> m_session;
};

/// Tells what a report holds, the first hundred entries one by one.
void tellReport(const SC_FileReport &report);
