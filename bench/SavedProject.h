#pragma once

#include "project/PKC_SessionContext.h"

#include <QString>
#include <QTemporaryDir>

#include <memory>

/// A project on disk for as long as the program runs.
class SavedProject
{
public:
    /// Written when first asked for; all records of its panels as they are made, or with something in each.
    static const SavedProject &ofSize(unsigned int panels);
    static const SavedProject &filled(unsigned int panels);

    QString path() const { return m_folder.filePath(QStringLiteral("big.plotka")); }
    /// A session with it open and its project object built.
    std::unique_ptr<PKC_SessionContext> opened() const;

private:
    SavedProject(unsigned int panels, bool isFilled);

    QTemporaryDir m_folder;
    unsigned int m_panels;
};
