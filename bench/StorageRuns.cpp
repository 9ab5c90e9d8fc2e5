#include "StorageRuns.h"

#include <QFile>
#include <QXmlStreamReader>

#include <cstdlib>

void runOpen(benchmark::State &state, const SavedProject &saved)
{
    for (auto _ : state) {
        std::unique_ptr<PKC_SessionContext> session = saved.opened();
        state.PauseTiming();
        session->releaseProject();
        session.reset();
        state.ResumeTiming();
    }
}

void runSave(benchmark::State &state, const SavedProject &saved)
{
    const std::unique_ptr<PKC_SessionContext> session = saved.opened();
    for (auto _ : state) {
        if (!session->saveProject())
            std::abort();
    }
    session->releaseProject();
}

void runXmlPass(benchmark::State &state, const SavedProject &saved)
{
    for (auto _ : state) {
        QFile file(saved.path());
        if (!file.open(QIODevice::ReadOnly))
            std::abort();
        QXmlStreamReader xml(&file);
        while (!xml.atEnd())
            benchmark::DoNotOptimize(xml.readNext());
        if (xml.hasError())
            std::abort();
    }
}
