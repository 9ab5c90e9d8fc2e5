#pragma once

#include "interchange/CutText.h"
#include "interchange/otio/OtioProjectImport.h"
#include "project/PKC_PlotkaProject.h"
#include "project/PKC_SessionContext.h"

#include <memory>

/// A session that has imported a cut and built the project object on it. Nothing is on disk.
class ImportedCut
{
public:
    explicit ImportedCut(const QByteArray &bytes, const OtioOptions &options = OtioOptions());
    explicit ImportedCut(const QJsonObject &cut, const OtioOptions &options = OtioOptions());

    const OtioProjectImport &result() const { return m_result; }
    PKC_SessionContext &session() const { return *m_session; }
    /// Only after an import without error.
    const PKC_PlotkaProject &project() const { return *m_session->plotkaProject(); }

private:
    std::unique_ptr<PKC_SessionContext> m_session;
    OtioProjectImport m_result;
};

/// The plan that somebody would have to make for this very project to be built of it, asked through public
/// queries; its tracks are the layers of the top scene.
OtioPlan planOf(const PKC_PlotkaProject &project);

/// Sees that the project is what the plan says, the names of tracks apart: those may be made up.
void expectBuiltAsPlanned(const OtioPlan &plan, const PKC_PlotkaProject &project);
