#include "interchange/BuiltProject.h"
#include "interchange/LooseJson_p.h"
#include "scene/metadata/PIO_MetadataString.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"

#include <QJsonDocument>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <sstream>

using namespace CutText;
using namespace Plotka;

namespace
{

const char *const markers = R"("markers":[{"OTIO_SCHEMA":"Marker.2"}])";
const char *const range5 = R"("source_range":{"duration":{"rate":24,"value":5}})";

std::string clipText(const std::string &fields)
{
    return R"({"OTIO_SCHEMA":"Clip.2",)" + fields + "," + range5 + "}";
}

std::string trackText(const std::string &fields, const std::string &children)
{
    return R"({"OTIO_SCHEMA":"Track.1",)" + fields + R"("children":[)" + children + "]}";
}

/// "name text" for each text record, one a line.
std::string recordsOf(const PIO_Metadatas &records)
{
    std::ostringstream out;
    for (const PIO_Metadata *record : records) {
        if (const auto *text = dynamic_cast<const PIO_MetadataString *>(record))
            out << text->metaName().toStdString() << ' ' << text->valueString().toStdString() << '\n';
    }
    return out.str();
}

std::string recordsOf(const std::vector<OtioRecordPlan> &records)
{
    std::ostringstream out;
    for (const OtioRecordPlan &record : records)
        out << record.name.toStdString() << ' ' << record.text.toStdString() << '\n';
    return out.str();
}

OtioPlan planOf(const std::string &json)
{
    const OtioReading reading = OtioImport::read(QByteArray::fromStdString(json));
    EXPECT_EQ(reading.error.message.toStdString(), "");
    for (const ImportNote &note : reading.notes)
        EXPECT_NE(note.severity, ImportNote::Loss) << print({note});
    return reading.plan;
}

std::string keptOfClip(const std::string &fields)
{
    const OtioPlan plan = planOf(trackText("", clipText(fields)));
    return plan.shots.empty() ? "no shot" : recordsOf(plan.shots[0].records);
}

} // namespace

TEST(OtioKept, IsNothingOfWhatAStoryboardSays)
{
    EXPECT_EQ(keptOfClip(R"("name":"A")"), "");
    EXPECT_EQ(
        keptOfClip(R"("name":"A","metadata":{},"effects":[],"markers":[],"enabled":false,"media_reference":null)"), "");
    EXPECT_EQ(keptOfClip(R"("metadata":{"plotka":{"act":"One","sequence":"Two"}})"), "");
    EXPECT_EQ(
        keptOfClip(R"("media_reference":{"OTIO_SCHEMA":"MissingReference.1","name":"","available_range":null})"), "");
}

TEST(OtioKept, IsTheItemAsItWasRead)
{
    for (const char *fields : {R"("name":"A","metadata":{"b":NaN,"a":1e400,"b":12345678901234567890123})",
             R"("markers":[{"OTIO_SCHEMA":"Marker.2","name":"\u0001\ud800"}])", R"("effects":[{}])",
             R"("media_reference":{"OTIO_SCHEMA":"ExternalReference.1","target_url":"a.mov"})",
             R"("media_reference":{"OTIO_SCHEMA":"MissingReference.1","available_range":{"x":1}})",
             R"("metadata":{"plotka":{"act":"One","other":1}})", R"("color":{"r":0.1})",
             R"("children":[{"a":[1]}],"x":1)"})
        EXPECT_EQ(keptOfClip(fields), "otio " + clipText(fields) + "\n");
    const std::string late =
        R"({"OTIO_SCHEMA":"Clip.1","source_range":{"start_time":{"rate":24,"value":3},"duration":{"rate":24,"value":5}}})";
    EXPECT_EQ(recordsOf(planOf(trackText("", late)).shots[0].records), "otio " + late + "\n");
}

TEST(OtioKept, LiesWithTheShotPanelOrClipThatItWasMadeOf)
{
    const std::string own = markers;
    const std::string panel = clipText(own + R"(,"name":"p")");
    const std::string gap = R"({"OTIO_SCHEMA":"Gap.1","name":"g",)" + std::string(range5) + "}";
    const std::string nested = trackText(own + ",", panel + "," + gap);
    const std::string inStack = trackText(R"("name":"inner",)", gap + "," + clipText(R"("name":"q")"));
    const std::string stack = R"({"OTIO_SCHEMA":"Stack.1",)" + own + R"(,"children":[)" + inStack + "]}";
    const std::string shown = trackText("", clipText(own) + "," + nested + "," + stack);
    const std::string layer = trackText("", gap + "," + clipText(own + R"(,"name":"c")"));
    const OtioPlan plan = planOf(R"({"OTIO_SCHEMA":"Stack.1","children":[)" + shown + "," + layer + "]}");

    ASSERT_EQ(plan.shots.size(), 3U);
    EXPECT_EQ(recordsOf(plan.shots[0].records), "otio " + clipText(own) + "\n");
    EXPECT_EQ(recordsOf(plan.shots[0].panels.at(0).records), "");
    EXPECT_EQ(
        recordsOf(plan.shots[1].records), R"(otio {"OTIO_SCHEMA":"Track.1",)" + own + "}\notio/item 2 " + gap + "\n");
    EXPECT_EQ(recordsOf(plan.shots[1].panels.at(0).records), "otio " + panel + "\n");
    EXPECT_EQ(recordsOf(plan.shots[2].records),
        R"(otio {"OTIO_SCHEMA":"Stack.1",)" + own + "}\n"
            + "otio/track 1 {\"OTIO_SCHEMA\":\"Track.1\",\"name\":\"inner\"}\notio/track 1/item 1 " + gap + "\n");
    EXPECT_EQ(recordsOf(plan.shots[2].panels.at(0).records), "");
    EXPECT_EQ(recordsOf(plan.videoTracks.at(0).clips.at(0).records), "otio " + clipText(own + R"(,"name":"c")") + "\n");
    EXPECT_EQ(recordsOf(plan.records), "otio/track 2/item 1 " + gap + "\n");
}

TEST(OtioKept, LiesWithTheProjectWhereThereIsNoSceneOfItsOwn)
{
    const std::string own = markers;
    const std::string a = clipText(R"("name":"A")");
    const std::string wipe = R"({"OTIO_SCHEMA":"Transition.1","name":"w","transition_type":"Wipe",)"
                             R"("in_offset":{"rate":24,"value":1},"out_offset":{"rate":24,"value":1}})";
    const std::string sounds = trackText(own + R"(,"kind":"Audio",)", clipText(own));
    const std::string shown = trackText(own + ",", a + "," + wipe + "," + a);
    const std::string gap = R"({"OTIO_SCHEMA":"Gap.1","name":"g",)" + std::string(range5) + "}";
    const std::string board =
        R"({"OTIO_SCHEMA":"Timeline.1","name":"T","metadata":{"x":1},"tracks":{"OTIO_SCHEMA":"Stack.1",)" + own
        + R"(,"children":[)" + shown + "," + sounds + "," + gap + R"(]},"global_start_time":null})";
    const std::string expected =
        R"(otio {"OTIO_SCHEMA":"Timeline.1","name":"T","metadata":{"x":1},"global_start_time":null})"
        "\notio/stack {\"OTIO_SCHEMA\":\"Stack.1\","
        + own + "}\notio/track 1 {\"OTIO_SCHEMA\":\"Track.1\"," + own + "}\notio/track 1/item 2 " + wipe
        + "\notio/track 2 {\"OTIO_SCHEMA\":\"Track.1\"," + own + ",\"kind\":\"Audio\"}\notio/track 2/item 1 "
        + clipText(own) + "\notio/track 3 " + gap + "\n";
    EXPECT_EQ(recordsOf(planOf(board).records), expected);

    const std::string reel = R"({"OTIO_SCHEMA":"SerializableCollection.1","name":"reel","children":[)";
    EXPECT_EQ(recordsOf(planOf(reel + board + "]}").records),
        expected.substr(0, expected.find('\n') + 1)
            + "otio/collection {\"OTIO_SCHEMA\":\"SerializableCollection.1\",\"name\":\"reel\"}\n"
            + expected.substr(expected.find('\n') + 1));
}

TEST(OtioKept, IsOfTheItemThatCounts)
{
    const std::string read = clipText(std::string(R"("name":"read",)") + markers);
    const std::string doubled = R"({"OTIO_SCHEMA":"Track.1","children":[)" + clipText(R"("name":"dead")") + ","
        + clipText(markers) + R"(],"children":[null,)" + read + "]}";
    const OtioReading reading = OtioImport::read(QByteArray::fromStdString(doubled));
    ASSERT_EQ(reading.plan.shots.size(), 1U);
    EXPECT_EQ(recordsOf(reading.plan.shots[0].records), "otio " + read + "\n");
}

TEST(OtioKept, IsAtMostAMegabyteAnItem)
{
    const auto clipOf = [](std::size_t length) {
        return clipText(R"("metadata":{"x":")" + std::string(length, 'x') + "\"}");
    };
    const std::size_t around = clipOf(0).size();
    const std::size_t most = 1024 * 1024;
    const OtioPlan plan = planOf(trackText("", clipOf(most - around)));
    ASSERT_EQ(plan.shots.at(0).records.size(), 1U);
    EXPECT_EQ(plan.shots[0].records[0].text.size(), static_cast<qsizetype>(most));

    const OtioReading reading =
        OtioImport::read(QByteArray::fromStdString(trackText("", clipOf(most - around + 1) + "," + clipOf(1))));
    EXPECT_EQ(print(reading.notes),
        "loss too-large: track 1, item 1: it has more than 1 MB of JSON, of which this has no place and is not kept: "
        "metadata\ninfo metadata: track 1, item 2: metadata is kept: x\n");
    EXPECT_TRUE(reading.plan.shots.at(0).records.empty());
    EXPECT_EQ(reading.plan.shots.at(1).records.size(), 1U);
}

TEST(OtioKept, DoesNotCountTheChildrenOfAnItem)
{
    const std::string half = clipText(R"("metadata":{"x":")" + std::string(600'000, 'x') + "\"}");
    const std::string own = markers;
    const OtioPlan plan = planOf(trackText("", trackText(own + ",", half + "," + half)));
    EXPECT_EQ(recordsOf(plan.shots.at(0).records), R"(otio {"OTIO_SCHEMA":"Track.1",)" + own + "}\n");
}

TEST(OtioKept, ComesBackFromAProjectFile)
{
    const QTemporaryDir folder;
    const std::string clip = clipText("\"name\":\"A\",\"metadata\":{\"quote\":\"<&'\\\" \\u0000 "
                                      "\\n\",\"raw\":\"\x01\xEF\xBF\xBF\xC2\x85\",\"n\":NaN}");
    const std::string kept = clipText(
        "\"name\":\"A\",\"metadata\":{\"quote\":\"<&'\\\" \\u0000 \\n\",\"raw\":\"\\u0001\\uffff\xC2\x85\",\"n\":NaN}");
    const std::string large = clipText(R"("metadata":{"x":")" + std::string(1'000'000, 'y') + "\"}");
    const std::string board = R"({"OTIO_SCHEMA":"Timeline.1","name":"Kept","metadata":{"x":[ 1 , 2 ]},"tracks":)"
                              R"({"OTIO_SCHEMA":"Stack.1","children":[)"
        + trackText("", clip + "," + large) + "]}}";
    {
        const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
        const OtioProjectImport made =
            OtioImport::importInto(*session, QByteArray::fromStdString(board), folder.path());
        ASSERT_TRUE(made.project);
        session->createPlotkaProject(made.project);
        ASSERT_TRUE(session->saveProject(nullptr));
    }
    const std::unique_ptr<PKC_SessionContext> session(PKC_SessionContext::createSessionContext(nullptr, nullptr));
    SC_Project *const project = session->openProject(folder.filePath(QStringLiteral("Kept.plotka")));
    ASSERT_TRUE(project);
    session->createPlotkaProject(project);
    EXPECT_EQ(recordsOf(*project->metadatas()),
        "otio {\"OTIO_SCHEMA\":\"Timeline.1\",\"name\":\"Kept\",\"metadata\":{\"x\":[1,2]}}\n");
    const PKC_PlotkaProject &opened = *session->plotkaProject();
    EXPECT_EQ(recordsOf(*opened.getShotByNdx(0).symbol()->metadatas()), "otio " + kept + "\n");
    EXPECT_EQ(recordsOf(*opened.getShotByNdx(1).symbol()->metadatas()), "otio " + large + "\n");

    // What was kept says again what was read, the raw characters included.
    const std::string again = recordsOf(*opened.getShotByNdx(0).symbol()->metadatas()).substr(5);
    EXPECT_EQ(LooseJson::parse(QByteArray::fromStdString(again)).root,
        LooseJson::parse(QByteArray::fromStdString(clip)).root);
}
