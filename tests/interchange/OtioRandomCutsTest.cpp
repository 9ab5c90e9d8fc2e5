#include "interchange/BuiltProject.h"
#include "scene/metadata/PIO_MetadataString.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "support/Problems.h"

#include <QHash>
#include <QJsonDocument>
#include <QRegularExpression>

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

// A random timeline whose items are named "t1.", "t2." and so on and carry things that a storyboard has no place for.
class CarryingCut
{
public:
    explicit CarryingCut(unsigned int seed) : m_random(seed)
    {
        std::vector<QJsonObject> tracks;
        const QString tag = newTag(QString());
        for (int i = upTo(2); i >= 0; --i)
            tracks.push_back(randomTrack(tag, 0));
        m_timeline = named(with(CutText::timeline({}), "tracks", named(stack(tracks), tag)), newTag(QString()));
    }

    const QJsonObject &timeline() const { return m_timeline; }
    /// Of all that carries something.
    const QStringList &tags() const { return m_tags; }
    /// True for what stands in a track or stack that a loss is told of.
    bool isBelowALoss(const QString &tag, const QStringList &lost) const
    {
        const QString parent = m_parents.value(tag);
        return !parent.isEmpty() && (lost.contains(parent) || isBelowALoss(parent, lost));
    }

private:
    int upTo(int most) { return static_cast<int>(m_random() % static_cast<unsigned int>(most + 1)); }

    QString newTag(const QString &parent)
    {
        const QString tag = QStringLiteral("t%1.").arg(m_parents.size() + 1);
        m_parents.insert(tag, parent);
        return tag;
    }

    QJsonObject named(QJsonObject item, const QString &tag)
    {
        item = with(item, "name", tag);
        const bool isClip = item.value(QLatin1String("OTIO_SCHEMA")) == QLatin1String("Clip.2");
        const char *const fields[] = {"", "metadata", "markers", "effects", "media_reference", "colour"};
        const char *const field = fields[upTo(5)];
        if (*field == '\0' || (qstrcmp(field, "media_reference") == 0 && !isClip))
            return item;
        m_tags << tag;
        const QJsonObject thing = {{QStringLiteral("OTIO_SCHEMA"), QStringLiteral("Thing.1")}};
        if (qstrcmp(field, "markers") == 0 || qstrcmp(field, "effects") == 0)
            return with(item, field, QJsonArray{thing});
        return with(item, field, thing);
    }

    QJsonObject randomTrack(const QString &parent, int depth)
    {
        const QString tag = newTag(parent);
        std::vector<QJsonObject> items;
        for (int i = upTo(5); i > 0; --i)
            items.push_back(randomItem(tag, depth));
        const char *const kinds[] = {"Video", "Video", "Video", "Audio", "Captions"};
        const QJsonObject whole = track(items, kinds[upTo(4)]);
        return named(upTo(4) == 0 ? with(whole, "source_range", range(upTo(20) - 5, upTo(30))) : whole, tag);
    }

    QJsonObject randomItem(const QString &parent, int depth)
    {
        const int kind = upTo(depth < 3 ? 9 : 6);
        if (kind == 7)
            return randomTrack(parent, depth + 1);
        const QString tag = newTag(parent);
        if (kind > 7) {
            std::vector<QJsonObject> tracks;
            for (int i = upTo(2); i > 0; --i)
                tracks.push_back(upTo(4) == 0 ? randomItem(tag, 3) : randomTrack(tag, depth + 1));
            return named(stack(tracks), tag);
        }
        const double frames = upTo(40) / 2.0;
        return named(kind < 4 ? clip("", frames) : kind == 4 ? gap(frames) : dissolve(upTo(4), upTo(4)), tag);
    }

    std::mt19937 m_random;
    QJsonObject m_timeline;
    QHash<QString, QString> m_parents;
    QStringList m_tags;
};

// The tags that a text has in quotes or brackets; of an item's JSON without its children that is its own.
QStringList tagsOf(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("[\"(](t\\d+\\.)[\")]"));
    QStringList tags;
    for (const QRegularExpressionMatch &match : pattern.globalMatch(text))
        tags << match.captured(1);
    return tags;
}

void addTags(const std::vector<OtioRecordPlan> &records, QStringList &tags)
{
    for (const OtioRecordPlan &record : records)
        tags += tagsOf(record.text);
}

QStringList tagsIn(const OtioPlan &plan)
{
    QStringList tags;
    addTags(plan.records, tags);
    for (const OtioShotPlan &shot : plan.shots) {
        addTags(shot.records, tags);
        for (const OtioPanelPlan &panel : shot.panels)
            addTags(panel.records, tags);
    }
    for (const OtioTrackPlan &track : plan.videoTracks) {
        for (const OtioClipPlan &clip : track.clips)
            addTags(clip.records, tags);
    }
    tags.sort();
    return tags;
}

void addTags(const PIO_Metadatas &records, QStringList &tags)
{
    for (const PIO_Metadata *record : records) {
        if (const auto *text = dynamic_cast<const PIO_MetadataString *>(record))
            tags += tagsOf(text->valueString());
    }
}

QStringList tagsIn(const SC_Project &project)
{
    QStringList tags;
    addTags(*project.metadatas(), tags);
    for (unsigned int i = 0; i < project.sceneCount(); ++i)
        addTags(*static_cast<const TUScene *>(project.sceneAt(i))->metadatas(), tags);
    tags.sort();
    return tags;
}

// Of the items that notes of losses are about.
QStringList lostTagsOf(const std::vector<ImportNote> &notes)
{
    QStringList tags;
    for (const ImportNote &note : notes) {
        const QStringList path = tagsOf(note.item);
        if (note.severity == ImportNote::Loss && !path.isEmpty())
            tags << path.back();
    }
    return tags;
}

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

TEST(OtioRandomCuts, KeepOrTellOfEveryItem)
{
    std::size_t kept = 0;
    for (unsigned int seed = 0; seed < 400 && !::testing::Test::HasFailure(); ++seed) {
        SCOPED_TRACE(::testing::Message() << "seed " << seed);
        const CarryingCut cut(seed);
        const QByteArray text = QJsonDocument(cut.timeline()).toJson();
        const OtioReading reading = OtioImport::read(text);
        const QStringList keptTags = tagsIn(reading.plan);
        const QStringList lostTags = lostTagsOf(reading.notes);
        for (const QString &tag : cut.tags()) {
            EXPECT_LE(keptTags.count(tag), 1) << tag.toStdString();
            EXPECT_TRUE(keptTags.contains(tag) || lostTags.contains(tag) || cut.isBelowALoss(tag, lostTags))
                << tag.toStdString() << " is neither kept nor told of\n"
                << print(reading.notes);
        }
        for (const ImportNote &note : reading.notes)
            EXPECT_TRUE(note.severity != ImportNote::Loss || OtioImport::lossCodes().contains(note.code));
        kept += static_cast<std::size_t>(keptTags.size());

        const ImportedCut imported(text);
        EXPECT_EQ(tagsIn(*imported.result().project), keptTags);
    }
    EXPECT_GT(kept, 2000U);
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
