#include "cli/CommandRun.h"
#include "support/Storyboard.h"

#include <gtest/gtest.h>

TEST(WalkPanelsExample, PrintsThePanelsOfAProject)
{
    const ProjectFolder folder;
    const QString file = folder.save(Storyboard("Opening(24,12) -10- Street(30)"));
    const CommandRun run = runProgram(QStringLiteral(PLOTKA_WALK_PANELS), {file});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.output.toStdString(), "Opening: 1-24\nOpening: 25-36\nStreet: 47-76\n");
    EXPECT_EQ(runProgram(QStringLiteral(PLOTKA_WALK_PANELS), {folder.path(QStringLiteral("nowhere"))}).exitCode, 1);
}
