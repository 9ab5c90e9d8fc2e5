#include "SavedProject.h"
#include "sizes.h"

#include <QFile>
#include <QXmlStreamReader>

#include <cstdlib>

namespace
{

void open(benchmark::State &state)
{
    const SavedProject &saved = SavedProject::ofSize(panelsOf(state));
    for (auto _ : state) {
        std::unique_ptr<PKC_SessionContext> session = saved.opened();
        state.PauseTiming();
        session->releaseProject();
        session.reset();
        state.ResumeTiming();
    }
}
PLOTKA_BENCH_SIZES(open, "open");

void save(benchmark::State &state)
{
    const std::unique_ptr<PKC_SessionContext> session = SavedProject::ofSize(panelsOf(state)).opened();
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
