#include "interchange/BuiltProject.h"
#include "support/Problems.h"

#include <QDirIterator>
#include <QFile>

#include <gtest/gtest.h>

#include <iostream>

using namespace CutText;

// Frames of one list ascend, touch nothing they may not, and end within bounds.
static void expectSound(const OtioPlan &plan)
{
    unsigned int lastCut = 0;
    for (const OtioShotPlan &shot : plan.shots) {
        EXPECT_GT(shot.firstFrameBetweenCuts, lastCut);
        EXPECT_LE(shot.firstFrame, shot.firstFrameBetweenCuts);
        EXPECT_GE(shot.lastFrame, shot.lastFrameBetweenCuts);
        lastCut = shot.lastFrameBetweenCuts;
        unsigned int lastPanel = 0;
        for (const OtioPanelPlan &panel : shot.panels) {
            EXPECT_GT(panel.firstFrame, lastPanel);
            EXPECT_GE(panel.lastFrame, panel.firstFrame);
            lastPanel = panel.lastFrame;
        }
        EXPECT_LE(lastPanel, shot.frameCount());
    }
    EXPECT_LE(lastCut, plan.frameCount);
}

static void expectBuilt(const QByteArray &bytes, const OtioReading &reading)
{
    const ImportedCut cut(bytes);
    EXPECT_EQ(cut.result().error.message, reading.error.message);
    ASSERT_EQ(cut.result().project == nullptr, reading.hasError());
    if (reading.hasError())
        return;
    expectBuiltAsPlanned(reading.plan, cut.project());
    EXPECT_EQ(problemsOf(cut.project()), "");
    for (const ImportNote &note : cut.result().notes)
        EXPECT_NE(note.code, QStringLiteral("refused"));
}

TEST(OtioCutsOfAFolder, BecomeProjectsOrAreRefusedForAReason)
{
    const QString folder = qEnvironmentVariable("PLOTKA_CUTS");
    if (folder.isEmpty())
        GTEST_SKIP() << "PLOTKA_CUTS names no folder of cuts to try";

    int count = 0;
    QDirIterator files(folder, {QStringLiteral("*.otio")}, QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        const OtioReading reading = OtioImport::read(bytes);
        ++count;
        std::cout << "--- " << file.fileName().toStdString() << ": " << reading.error.message.toStdString() << '\n'
                  << reading.plan.rate.asString().toStdString() << " fps, " << reading.plan.frameCount
                  << " frames, from " << reading.plan.startTimecode << '\n'
                  << print(reading.plan) << '\n'
                  << print(reading.notes);
        expectSound(reading.plan);
        expectBuilt(bytes, reading);
    }
    EXPECT_GT(count, 0) << "no cut in the folder";
}
