#include "BigProject.h"
#include "sizes.h"

#include "scene/session/SC_Project.h"
#include "scene/storage/SC_FileReport.h"

#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <cstdlib>
#include <map>
#include <memory>

namespace
{

/// A saved project of the size, written when first asked for.
class SavedProject
{
public:
    explicit SavedProject(unsigned int panels)
    {
        BigProject big(panels);
        if (!m_folder.isValid() || !big.session().saveProjectAs(path()))
            std::abort();
    }
    static const SavedProject &ofSize(unsigned int panels)
    {
        static std::map<unsigned int, std::unique_ptr<SavedProject>> made;
        std::unique_ptr<SavedProject> &saved = made[panels];
        if (!saved)
            saved = std::make_unique<SavedProject>(panels);
        return *saved;
    }

    QString path() const { return m_folder.filePath(QStringLiteral("big.plotka")); }

private:
    QTemporaryDir m_folder;
};

/// A session with the project of a file open and its project object built.
std::unique_ptr<PKC_SessionContext> opened(const QString &path, unsigned int panels)
{
    std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    session->createPlotkaProject(session->openProject(path));
    if (!session->plotkaProject() || session->plotkaProject()->panelCount() != panels)
        std::abort();
    return session;
}

void open(benchmark::State &state)
{
    const QString path = SavedProject::ofSize(panelsOf(state)).path();
    for (auto _ : state) {
        std::unique_ptr<PKC_SessionContext> session = opened(path, panelsOf(state));
        state.PauseTiming();
        session->releaseProject();
        session.reset();
        state.ResumeTiming();
    }
}
PLOTKA_BENCH_SIZES(open, "open");

void save(benchmark::State &state)
{
    const std::unique_ptr<PKC_SessionContext> session =
        opened(SavedProject::ofSize(panelsOf(state)).path(), panelsOf(state));
    for (auto _ : state) {
        if (!session->saveProject())
            std::abort();
    }
    session->releaseProject();
}
PLOTKA_BENCH_SIZES(save, "save");

void xmlPass(benchmark::State &state)
{
    const QString path = SavedProject::ofSize(panelsOf(state)).path();
    for (auto _ : state) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            std::abort();
        QXmlStreamReader xml(&file);
        while (!xml.atEnd())
            benchmark::DoNotOptimize(xml.readNext());
        if (xml.hasError())
            std::abort();
    }
}
PLOTKA_BENCH_SIZES(xmlPass, "floor: XML pass");

} // namespace
