#include "interchange/BuiltProject.h"
#include "support/Problems.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

#include <random>

using namespace CutText;

namespace
{

// A track of random clips, gaps, nested tracks and transitions, in halves of frames at 24 a second,
// with what a plain count makes of it beside it: rounding is floor(x + 1/2) in halves.
class RandomCut
{
public:
    explicit RandomCut(unsigned int seed) : m_random(seed)
    {
        const int count = upTo(12);
        for (int i = 0; i < count; ++i)
            addItem(i);
    }

    const std::vector<QJsonObject> &items() const { return m_items; }
    /// "1-24 30-31": the shots between their cuts.
    const std::string &shotFrames() const { return m_shotFrames; }
    int frameCount() const { return frameAt(m_halves); }

private:
    int upTo(int most) { return static_cast<int>(m_random() % static_cast<unsigned int>(most + 1)); }
    static int frameAt(int halves) { return (halves + 1) / 2; }

    void addItem(int index)
    {
        const std::string name = "s" + std::to_string(index);
        const int halves = upTo(3) == 0 ? upTo(3) : upTo(40);
        switch (upTo(6)) {
        case 0:
            m_items.push_back(gap(halves / 2.0));
            m_halves += halves;
            break;
        case 1:
        case 2:
            m_items.push_back(dissolve(upTo(30) / 2.0, upTo(30) / 2.0));
            break;
        case 3:
            addShot(nested(halves), halves);
            break;
        default:
            addShot(clip(name.c_str(), halves / 2.0), halves);
            break;
        }
    }

    QJsonObject nested(int halves)
    {
        const int head = upTo(halves);
        const int middle = upTo(halves - head);
        const QJsonObject between = upTo(1) == 0 ? gap(middle / 2.0) : clip("m", middle / 2.0);
        return track({clip("h", head / 2.0), between, clip("t", (halves - head - middle) / 2.0)});
    }

    void addShot(const QJsonObject &item, int halves)
    {
        m_items.push_back(item);
        const int first = frameAt(m_halves);
        m_halves += halves;
        const int end = frameAt(m_halves);
        if (first < end)
            m_shotFrames += std::to_string(first + 1) + "-" + std::to_string(end) + " ";
    }

    std::mt19937 m_random;
    std::vector<QJsonObject> m_items;
    std::string m_shotFrames;
    int m_halves = 0;
};

std::string framesBetweenCuts(const OtioPlan &plan)
{
    std::string result;
    for (const OtioShotPlan &shot : plan.shots)
        result += std::to_string(shot.firstFrameBetweenCuts) + "-" + std::to_string(shot.lastFrameBetweenCuts) + " ";
    return result;
}

void expectSoundTransitions(const OtioPlan &plan)
{
    std::vector<unsigned int> before(plan.shots.size());
    std::vector<unsigned int> after(plan.shots.size());
    unsigned int lastFrame = 0;
    for (const OtioTransitionPlan &transition : plan.transitions) {
        ASSERT_LT(transition.before + 1, plan.shots.size());
        const OtioShotPlan &earlier = plan.shots[transition.before];
        const OtioShotPlan &later = plan.shots[transition.before + 1];
        EXPECT_EQ(transition.firstFrame(), later.firstFrame);
        EXPECT_EQ(transition.lastFrame(), earlier.lastFrame);
        EXPECT_LE(transition.firstFrame(), transition.lastFrame());
        EXPECT_EQ(transition.cutFrame, later.firstFrameBetweenCuts);
        EXPECT_EQ(transition.cutFrame, earlier.lastFrameBetweenCuts + 1);
        EXPECT_LT(lastFrame + 1, transition.firstFrame()) << "two transitions leave a shot no frame";
        EXPECT_LT(earlier.firstFrame, transition.firstFrame()) << "the earlier shot keeps no frame";
        EXPECT_GT(later.lastFrame, transition.lastFrame()) << "the later shot keeps no frame";
        lastFrame = transition.lastFrame();
        after[transition.before] = transition.framesAfterCut;
        before[transition.before + 1] = transition.framesBeforeCut;
    }
    for (std::size_t i = 0; i < plan.shots.size(); ++i) {
        const OtioShotPlan &shot = plan.shots[i];
        EXPECT_EQ(shot.firstFrame + before[i], shot.firstFrameBetweenCuts);
        EXPECT_EQ(shot.lastFrame, shot.lastFrameBetweenCuts + after[i]);
    }
}

void expectSoundPanels(const OtioPlan &plan)
{
    for (const OtioShotPlan &shot : plan.shots) {
        unsigned int lastFrame = 0;
        for (const OtioPanelPlan &panel : shot.panels) {
            EXPECT_GT(panel.firstFrame, lastFrame);
            EXPECT_GE(panel.lastFrame, panel.firstFrame);
            lastFrame = panel.lastFrame;
        }
        EXPECT_LE(lastFrame, shot.frameCount());
    }
}

std::size_t countOf(const std::vector<QJsonObject> &items, const char *schema)
{
    std::size_t count = 0;
    for (const QJsonObject &item : items)
        count += item.value(QLatin1String("OTIO_SCHEMA")) == QLatin1String(schema) ? 1 : 0;
    return count;
}

} // namespace

TEST(OtioRandomCuts, KeepTheirLengthsAndEveryShotAFrame)
{
    std::size_t transitions = 0;
    for (unsigned int seed = 0; seed < 3000 && !::testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        const RandomCut cut(seed);
        const OtioReading reading = read(timeline({track(cut.items())}));
        EXPECT_EQ(framesBetweenCuts(reading.plan), cut.shotFrames());
        EXPECT_EQ(reading.plan.frameCount, static_cast<unsigned int>(cut.frameCount()));
        expectSoundTransitions(reading.plan);
        expectSoundPanels(reading.plan);

        std::size_t leftOut = 0;
        for (const ImportNote &note : reading.notes)
            leftOut += note.code.startsWith(QLatin1String("transition-")) && note.severity == ImportNote::Loss ? 1 : 0;
        EXPECT_EQ(leftOut + reading.plan.transitions.size(), countOf(cut.items(), "Transition.1"))
            << "a transition is neither there nor told of";
        transitions += reading.plan.transitions.size();
    }
    EXPECT_GT(transitions, 1000U);
}

TEST(OtioRandomCuts, ReadTheSameThroughANestedShot)
{
    for (unsigned int seed = 0; seed < 500; ++seed) {
        const RandomCut cut(seed);
        const OtioPlan flat = read(timeline({track(cut.items())})).plan;
        const OtioPlan nest = read(timeline({track({track(cut.items())})})).plan;
        std::string panels;
        for (const OtioShotPlan &shot : nest.shots) {
            for (const OtioPanelPlan &panel : shot.panels)
                panels += std::to_string(panel.firstFrame) + "-" + std::to_string(panel.lastFrame) + " ";
        }
        EXPECT_EQ(panels, framesBetweenCuts(flat)) << "seed " << seed;
    }
}

TEST(OtioRandomCuts, AreBuiltAsPlanned)
{
    for (unsigned int seed = 0; seed < 500 && !::testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        const RandomCut cut(seed);
        const RandomCut layer(seed + 1000);
        const QJsonObject board =
            timeline({track(cut.items()), track(layer.items()), track(RandomCut(seed + 2000).items(), "Audio")});
        const ImportedCut imported(board);
        expectBuiltAsPlanned(read(board).plan, imported.project());
        EXPECT_EQ(problemsOf(imported.project()), "");
        for (const ImportNote &note : imported.result().notes)
            EXPECT_NE(note.code, QStringLiteral("refused"));
    }
}

TEST(OtioRandomCuts, SurviveAnyDamage)
{
    std::mt19937 random(7);
    const QByteArray whole =
        QJsonDocument(timeline({track(RandomCut(3).items()), track({clip("s", 5)}, "Audio")})).toJson();
    for (int i = 0; i < 3000; ++i) {
        QByteArray text = whole;
        for (unsigned int hits = random() % 4; hits < 4; ++hits)
            text[static_cast<qsizetype>(random() % static_cast<unsigned int>(text.size()))] =
                static_cast<char>(random());
        const OtioReading reading = OtioImport::read(text);
        expectSoundTransitions(reading.plan);
        expectSoundPanels(reading.plan);
        EXPECT_TRUE(!reading.hasError() || reading.plan.shots.empty());
    }
}
