#include "interchange/CutText.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <map>

using namespace CutText;

namespace
{

// The notes of one item, alone on the timeline.
std::string notesOf(const QJsonObject &item)
{
    return print(read(timeline({track({item})})).notes);
}

QJsonObject object(const char *schema)
{
    return {{QStringLiteral("OTIO_SCHEMA"), QString::fromLatin1(schema)}};
}

QJsonObject media(const char *schema, const char *url)
{
    return with(object(schema), "target_url", QString::fromLatin1(url));
}

} // namespace

TEST(OtioNotes, AreNoneWhereAllHasAPlace)
{
    EXPECT_EQ(notesOf(clip("A", 5)), "");
}

TEST(OtioNotes, TellWhatIsKeptOfAClip)
{
    EXPECT_EQ(notesOf(with(clip("A", 5), "markers", QJsonArray{object("Marker.2"), object("Marker.1")})),
        "info markers: track 1, item 1 (A): markers are kept: 2\n");
    EXPECT_EQ(notesOf(with(clip("A", 5), "effects", QJsonArray{object("LinearTimeWarp.1")})),
        "info effects: track 1, item 1 (A): effects are kept: LinearTimeWarp.1\n");
    EXPECT_EQ(
        notesOf(with(clip("A", 5), "metadata", QJsonObject{{QStringLiteral("cmx"), 1}, {QStringLiteral("b"), 1}})),
        "info metadata: track 1, item 1 (A): metadata is kept: b, cmx\n");
    EXPECT_EQ(notesOf(with(clip("A", 5), "media_reference", media("ExternalReference.1", "a.mov"))),
        "info media-reference: track 1, item 1 (A): media is kept: ExternalReference.1 a.mov\n");
    EXPECT_EQ(notesOf(with(clip("A", 5), "source_range", range(12, 5))),
        "info source-in-point: track 1, item 1 (A): that it begins 12.000 frames into its media is kept\n");
    EXPECT_EQ(notesOf(with(clip("A", 5), "color", object("Color.1"))),
        "info unknown-field: track 1, item 1 (A): unknown fields are kept: color\n");
}

TEST(OtioNotes, NameAllMediaOfAClipInOne)
{
    const QJsonObject all = {{QStringLiteral("DEFAULT_MEDIA"), media("ExternalReference.1", "a.mov")},
        {QStringLiteral("low"), media("ExternalReference.1", "b.mov")},
        {QStringLiteral("none"), object("MissingReference.1")}};
    EXPECT_EQ(notesOf(with(clip("A", 5), "media_references", all)),
        "info media-reference: track 1, item 1 (A): media is kept: ExternalReference.1 a.mov, ExternalReference.1 "
        "b.mov\n");
    EXPECT_EQ(notesOf(with(with(clip("A", 5), "media_references",
                               QJsonObject{{QStringLiteral("x"), object("MissingReference.1")}}),
                  "active_media_reference_key", QStringLiteral("y"))),
        "change no-active-media: track 1, item 1 (A): there is no media reference \"y\"\n");
}

TEST(OtioNotes, TellWhatIsKeptOfTimelineStackAndTrack)
{
    const QJsonObject metadata = {{QStringLiteral("x"), 1}};
    const QJsonObject marked = with(track({clip("A", 5)}, "Video", "V"), "markers", QJsonArray{object("Marker.2")});
    const QJsonObject tracks =
        with(with(stack({marked}), "effects", QJsonArray{object("Effect.1")}), "name", QStringLiteral("S"));
    EXPECT_EQ(print(read(with(with(timeline({}), "tracks", tracks), "metadata", metadata)).notes),
        "info metadata: timeline: metadata is kept: x\n"
        "info name-without-place: stack (S): its name has no place and is kept\n"
        "info effects: stack (S): effects are kept: Effect.1\n"
        "info markers: track 1 (V): markers are kept: 1\n");
}

TEST(OtioNotes, TellNamesOfGapsAndTransitions)
{
    const OtioReading reading = read(timeline({track({clip("A", 5), with(dissolve(1, 1), "name", QStringLiteral("d")),
        clip("B", 5), with(gap(2), "name", QStringLiteral("g"))})}));
    EXPECT_EQ(print(reading.notes),
        "info name-without-place: track 1, item 4 (g): its name has no place and is kept\n"
        "info name-without-place: track 1, item 2 (d): its name has no place and is kept\n");
}

TEST(OtioNotes, TellWhatIsKeptOfAGapWhereverItStands)
{
    const auto marked = [](const QJsonObject &item) { return with(item, "markers", QJsonArray{object("Marker.2")}); };
    const QJsonObject plain = track({clip("A", 5)});
    const QJsonObject ending = track({clip("A", 5), marked(gap(3))});
    const QJsonObject instant = track({marked(gap(0)), clip("A", 5)});
    EXPECT_EQ(codes(read(timeline({ending}))), "markers");
    EXPECT_EQ(codes(read(timeline({instant}))), "markers no-frame");
    EXPECT_EQ(codes(read(timeline({track({instant})}))), "markers no-frame");
    EXPECT_EQ(codes(read(timeline({track({stack({instant})})}))), "markers no-frame");
    EXPECT_EQ(codes(read(timeline({plain, instant}))), "markers no-frame");
    EXPECT_EQ(codes(read(timeline({plain, with(instant, "kind", QStringLiteral("Audio"))}))), "markers no-frame");

    const QJsonObject trimmed = with(ending, "source_range", range(0, 5));
    EXPECT_EQ(codes(read(timeline({trimmed}))), "markers");
    EXPECT_EQ(codes(read(timeline({track({trimmed})}))), "markers");
    EXPECT_EQ(codes(read(timeline({plain, trimmed}))), "markers");

    const QJsonObject beside = with(marked(gap(5)), "name", QStringLiteral("wait"));
    EXPECT_EQ(codes(read(stack({plain, beside}))), "name-without-place markers");
    EXPECT_EQ(codes(read(timeline({track({stack({plain, beside})})}))), "name-without-place markers");
}

TEST(OtioNotes, TellTransitionsOfOtherTypes)
{
    const OtioReading reading = read(timeline(
        {track({clip("A", 5), with(dissolve(1, 1), "transition_type", QStringLiteral("w:Wipe")), clip("B", 5)})}));
    EXPECT_EQ(codes(reading), "transition-type");
    EXPECT_EQ(reading.plan.transitions.size(), 1U);
}

TEST(OtioNotes, TellTransitionsThatJoinOtherShotsThanThoseBesideThem)
{
    const auto reading = [](const std::vector<QJsonObject> &items) { return read(timeline({track(items)})); };
    const QJsonObject a = clip("A", 24);
    const QJsonObject b = clip("B", 24);
    const std::string joined = "A 1-25 (1-25) | B 24-48 (1-25)\ntransition after shot 0: 24-25 cut 25";
    for (const QJsonObject &left : {clip("x", 0.2), gap(0), gap(0.2), without(clip("y", 1), "source_range")}) {
        for (const bool isBefore : {true, false}) {
            const OtioReading moved =
                isBefore ? reading({a, left, dissolve(1, 1), b}) : reading({a, dissolve(1, 1), left, b});
            EXPECT_EQ(print(moved.plan), joined);
            EXPECT_EQ(print({moved.notes.back()}),
                "change transition-moved: track 1, item " + std::string(isBefore ? "3" : "2")
                    + ": what stands beside it lasts no frame and is left out; it joins the shots that are left\n");
        }
    }
    EXPECT_EQ(
        codes(reading({a, dissolve(1, 1), gap(0), dissolve(1, 1), b})), "no-frame transition-moved transition-doubled");
    EXPECT_EQ(codes(reading({a, dissolve(1, 1), gap(0), gap(5), b})), "no-frame transition-beside-gap");
    EXPECT_EQ(codes(reading({a, gap(5), gap(0), dissolve(1, 1), b})), "no-frame transition-beside-gap");
    EXPECT_EQ(codes(reading({gap(0), dissolve(1, 1), b})), "no-frame transition-at-edge");
    EXPECT_EQ(codes(reading({gap(0), a, dissolve(1, 1), b, gap(0)})), "no-frame no-frame");
}

TEST(OtioNotes, TellTransitionsThatHaveNoPlace)
{
    const std::vector<QJsonObject> joined = {clip("", 5), dissolve(1, 1), clip("", 5)};
    EXPECT_EQ(codes(read(timeline({track({track(joined)})}))), "transition-in-shot");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5)}), track(joined)}))), "transition-on-layer");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5)}), track(joined, "Audio")}))), "transition-in-sound");
    EXPECT_EQ(codes(read(stack({track({clip("A", 5)}), dissolve(1, 1)}))), "transition-at-edge");
}

TEST(OtioNotes, TellWhatLastsNoFrame)
{
    EXPECT_EQ(notesOf(clip("A", 0.4)),
        "loss no-frame: track 1, item 1 (A): it lasts no whole frame and is left out\n"
        "loss empty-timeline: track 1: no item of it makes a shot: the storyboard is empty\n");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5), gap(0)})}))), "no-frame");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5), without(clip("B", 1), "source_range")})}))), "no-length");
}

TEST(OtioNotes, TellWhyATimelineIsEmpty)
{
    EXPECT_EQ(print(read(timeline({track({gap(5)})})).notes),
        "change empty-timeline: track 1: no item of it makes a shot: the storyboard is empty\n");
    const QJsonObject outside = with(track({gap(5)}), "source_range", range(-12, 6));
    EXPECT_EQ(print(read(timeline({outside})).notes),
        "loss empty-timeline: track 1: no item of it makes a shot in its source range, 6.000 frames from -12.000: "
        "the storyboard is empty\n");
}

TEST(OtioNotes, TellOfARangeThatShowsNothingOfItsTrackOrStack)
{
    const QJsonObject items = track({clip("A", 5), clip("B", 5)});
    const auto emptyNote = [](const QJsonObject &board) {
        const OtioReading reading = read(board);
        EXPECT_TRUE(reading.plan.shots.empty());
        return print({reading.notes.back()});
    };
    const std::string after =
        "loss empty-timeline: track 1: no item of it makes a shot in its source range, 4.000 frames "
        "from 10.000: the storyboard is empty\n";
    EXPECT_EQ(emptyNote(timeline({with(items, "source_range", range(10, 4))})), after);
    EXPECT_EQ(emptyNote(timeline({with(items, "source_range", range(-4, 4))})),
        "loss empty-timeline: track 1: no item of it makes a shot in its source range, 4.000 frames from -4.000: the "
        "storyboard is empty\n");
    EXPECT_EQ(emptyNote(with(stack({items}), "source_range", range(20, 4))),
        "loss empty-timeline: track 1: no item of it makes a shot in the source range of the stack, 4.000 frames from "
        "20.000: the storyboard is empty\n");
    // The range shows a gap of a track that has a shot.
    EXPECT_EQ(codes(read(timeline({with(track({clip("A", 5), gap(5)}), "source_range", range(5, 5))}))),
        "trimmed-away empty-timeline");
    EXPECT_EQ(read(timeline({with(track({}), "source_range", range(5, 5))})).notes.back().severity, ImportNote::Change);
    EXPECT_EQ(codes(read(timeline({with(items, "source_range", range(9, 4))}))), "trimmed-away trimmed");
}

TEST(OtioNotes, TellWhatIsRounded)
{
    EXPECT_EQ(notesOf(clip("A", 5.5)),
        "change rounded: track 1, item 1 (A): it lasts from 0.000 to 5.500 frames, rounded to 0 and 6\n");
}

TEST(OtioNotes, TellWhatIsTrimmed)
{
    const QJsonObject items = with(track({clip("A", 5), clip("B", 5), clip("C", 5)}), "source_range", range(5, 7));
    EXPECT_EQ(print(read(timeline({items})).notes),
        "loss trimmed-away: track 1, item 1 (A): it lies outside the range that is shown and is left out\n"
        "change trimmed: track 1, item 3 (C): only a part of it lies in the range that is shown\n");
}

TEST(OtioNotes, TellNestedThingsWithoutAPlace)
{
    const QJsonObject deep = track({track({clip("p", 5)}, "Video", "D")});
    EXPECT_EQ(codes(read(timeline({track({deep})}))), "nested-too-deep");
    EXPECT_EQ(print(read(timeline({track({deep})})).plan), " 1-5 (D 1-5)");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5)}), track({deep})}))), "nested-on-layer");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5)}), track({deep}, "Audio")}))), "nested-on-layer");
    EXPECT_EQ(codes(read(timeline({track({track({clip("s", 5)}, "Audio")})}))), "nested-track empty-shot");
    EXPECT_EQ(codes(read(timeline({track({track({gap(5)})})}))), "empty-shot");
}

TEST(OtioNotes, TellWhatIsDisabled)
{
    const QJsonObject off = with(clip("", 5), "enabled", false);
    EXPECT_EQ(
        notesOf(off), "info disabled: track 1, item 1: it is disabled, which its scenes or sounds are marked with\n");
    EXPECT_EQ(codes(read(timeline({track({track({off})})}))), "disabled");
    EXPECT_EQ(codes(read(timeline({track({stack({with(track({clip("p", 5)}), "enabled", false)})})}))), "disabled");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5)}), track({off}, "Audio")}))), "disabled-sound");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5)}), with(track({clip("", 5)}, "Audio"), "enabled", false)}))),
        "disabled");
}

TEST(OtioNotes, TellTracksOfOtherKinds)
{
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5)}), track({clip("x", 5)}, "Captions")}))), "other-track");
    EXPECT_EQ(codes(read(timeline({track({clip("", 5)}, "Audio")}))), "no-video-track");
    EXPECT_EQ(codes(read(timeline({}))), "default-rate no-video-track");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5)}), track({clip("s", 5)}, "Audio")}))), "");
}

TEST(OtioNotes, TellSchemasNobodyKnowsAndKeepTheirTime)
{
    const QJsonObject unknown = with(object("Hologram.3"), "source_range", range(0, 4));
    const OtioReading reading = read(timeline({track({clip("A", 5), unknown, clip("B", 5)})}));
    EXPECT_EQ(print(reading.plan), "A 1-5 (1-5) | B 10-14 (1-5)");
    EXPECT_EQ(print(reading.notes),
        "loss unknown-schema: track 1, item 2: a Hologram.3 is not known and is left out; its time is kept\n");
    EXPECT_EQ(notesOf(with(clip("A", 5), "OTIO_SCHEMA", QStringLiteral("Clip.9"))),
        "change newer-schema: track 1, item 1 (A): Clip.9 is newer than what is known and is read as Clip.2\n");
}

TEST(OtioNotes, TellVersionsThatCannotBe)
{
    const auto versionNotes = [](const char *schema) {
        return notesOf(with(clip("A", 5), "OTIO_SCHEMA", QString::fromLatin1(schema)));
    };
    for (const char *schema :
        {"Clip.-1", "Clip.0", "Clip.000", "Clip.", "Clip.+2", "Clip. 2", "Clip.2x", "Clip.\u0661"}) {
        EXPECT_EQ(versionNotes(schema),
            std::string("change schema-version: track 1, item 1 (A): ") + QString::fromLatin1(schema).toStdString()
                + " has no version that could be and is read as Clip.2\n");
    }
    for (const char *schema : {"Clip.3", "Clip.2147483648", "Clip.999999999999999999999"}) {
        EXPECT_EQ(versionNotes(schema),
            std::string("change newer-schema: track 1, item 1 (A): ") + schema
                + " is newer than what is known and is read as Clip.2\n");
    }
    for (const char *schema : {"Clip", "Clip.1", "Clip.2", "Clip.02"})
        EXPECT_EQ(versionNotes(schema), "");
    EXPECT_EQ(codes(read(with(timeline({track({clip("A", 5)})}), "OTIO_SCHEMA", QStringLiteral("Timeline.2")))),
        "newer-schema");
    const QJsonObject collection = with({}, "OTIO_SCHEMA", QStringLiteral("SerializableCollection.-3"));
    EXPECT_EQ(codes(read(with(collection, "children", QJsonArray{clip("A", 5)}))), "schema-version");
}

TEST(OtioNotes, TellValuesOfTheWrongKind)
{
    EXPECT_EQ(notesOf(with(clip("A", 5), "name", 7)),
        "loss bad-value: track 1, item 1: its name is of the wrong kind and is left out\n");
    for (const char *field : {"metadata", "effects", "markers", "enabled", "media_reference", "media_references"})
        EXPECT_EQ(codes(read(timeline({track({with(clip("A", 5), field, 7)})}))), "bad-value") << field;
    EXPECT_EQ(
        codes(read(timeline({with(track({clip("A", 5)}), "children", 7)}))), "bad-value default-rate empty-timeline");
    EXPECT_EQ(codes(read(with(timeline({}), "tracks", 7))), "bad-value default-rate no-video-track");
    EXPECT_EQ(codes(OtioImport::read(R"({"OTIO_SCHEMA":"Track.1","children":[null]})")),
        "bad-value default-rate no-frame empty-timeline");
}

TEST(OtioNotes, TellTimesThatAreNone)
{
    const auto codesOf = [](const QJsonObject &duration) {
        const QJsonObject item = with(clip("A", 5), "source_range", with(range(0, 5), "duration", duration));
        return codes(read(timeline({track({clip("Z", 5), item})})));
    };
    EXPECT_EQ(codesOf(time(3, 0)), "bad-time no-frame");
    EXPECT_EQ(codesOf(time(3, -24)), "bad-time no-frame");
    EXPECT_EQ(codesOf(time(-3, 24)), "bad-time no-frame");
    EXPECT_EQ(codesOf(with(time(3, 24), "value", QStringLiteral("3"))), "bad-time no-frame");
    EXPECT_EQ(codesOf(time(0, 0)), "no-frame");
    EXPECT_EQ(codesOf(time(1e300, 24)), "bad-time too-late");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5), dissolve(-1, 2), clip("B", 5)})}))), "bad-time");
    EXPECT_EQ(codes(read(timeline({track({clip("A", 5), dissolve(2, -1), clip("B", 5)})}))), "bad-time");
}

TEST(OtioNotes, TellWhichTimeIsTakenAndWhy)
{
    const auto noteOf = [](const QJsonValue &offset) {
        QJsonObject transition = dissolve(1, 2);
        transition.insert(QStringLiteral("in_offset"), offset);
        const std::string notes = print(read(timeline({track({clip("A", 5), transition, clip("B", 5)})})).notes);
        return notes.substr(0, notes.find('\n'));
    };
    const std::string head = "change bad-time: track 1, item 2: its in_offset ";
    EXPECT_EQ(noteOf(time(-1, 24)), head + "is negative: -1 at 24 per second; 0 is taken");
    EXPECT_EQ(noteOf(time(3, 0)), head + "is no time: 3 at 0 per second; 0 is taken");
    EXPECT_EQ(noteOf(7), head + "is no time: 7; 0 is taken");
    EXPECT_EQ(noteOf(QJsonArray{1}), head + "is no time: [1]; 0 is taken");
    EXPECT_EQ(noteOf(QJsonObject{{QStringLiteral("value"), QStringLiteral("x")}}),
        head + "is no time: {\"value\":\"x\"}; 0 is taken");
    EXPECT_EQ(noteOf(time(1e300, 24)),
        head + "is longer than can be counted: 1e+300 at 24 per second; 2^32 seconds is taken");
}

TEST(OtioNotes, TellNumbersThatAreNone)
{
    const OtioReading reading =
        OtioImport::read(R"({"OTIO_SCHEMA":"Track.1","metadata":{"a":NaN,"b":-Infinity,"c":99999999999999999999}})");
    EXPECT_EQ(codes(reading), "number-not-finite number-too-long default-rate metadata empty-timeline");
}

TEST(OtioNotes, TellTheRestOfACollection)
{
    const QJsonObject collection = with(with(object("SerializableCollection.1"), "children", QJsonArray{clip("A", 5)}),
        "metadata", QJsonObject{{QStringLiteral("x"), 1}});
    EXPECT_EQ(codes(read(collection)), "metadata");
    const QJsonObject named = with(with(collection, "name", QStringLiteral("reel")), "metadata", QJsonObject());
    EXPECT_EQ(
        print(read(named).notes), "info name-without-place: collection (reel): its name has no place and is kept\n");
    for (const char *field : {"markers", "effects"}) {
        EXPECT_EQ(print(read(with(with(collection, "metadata", QJsonObject()), field, QJsonArray{1})).notes),
            std::string("info unknown-field: collection: unknown fields are kept: ") + field + "\n");
    }
    EXPECT_EQ(codes(read(with(collection, "source_range", range(0, 2)))), "metadata unknown-field");
}

TEST(OtioNotes, KeepWhatPeopleReadShort)
{
    const OtioReading reading =
        read(timeline({track({with(gap(5), "name", QString(10'000, QLatin1Char('x'))), clip("A", 5)})}));
    ASSERT_EQ(reading.notes.size(), 1U);
    EXPECT_LT(reading.notes[0].item.size(), 80);
}

TEST(OtioNotes, AreDocumentedAsLossesWhereTheyCanBe)
{
    QFile document(QStringLiteral(PLOTKA_DOCS "/otio-import.md"));
    ASSERT_TRUE(document.open(QIODevice::ReadOnly));
    static const QRegularExpression row(
        QStringLiteral("^\\| `([a-z-]+)` \\| [^|]*\\bloss\\b"), QRegularExpression::MultilineOption);
    QStringList documented;
    for (const QRegularExpressionMatch &match : row.globalMatch(QString::fromUtf8(document.readAll())))
        documented << match.captured(1);
    EXPECT_EQ(documented, OtioImport::lossCodes());
}

TEST(OtioNotes, CountWhatNobodyWouldRead)
{
    std::vector<QJsonObject> items;
    for (int i = 0; i < 250; ++i)
        items.push_back(with(clip("A", 5), "source_range", range(1, 5)));
    const OtioReading reading = read(timeline({track(items)}));
    EXPECT_EQ(reading.plan.shots.size(), 250U);
    ASSERT_EQ(reading.notes.size(), 101U);
    EXPECT_EQ(print({reading.notes.back()}), "info source-in-point: : and 150 more of this kind\n");
    EXPECT_EQ(reading.notes.front().count, 1);
    EXPECT_EQ(reading.notes.back().count, 150);
}

TEST(OtioNotes, HideNoLossBehindLesserNotesOfItsCode)
{
    std::vector<QJsonObject> items(101, gap(0));
    for (int i = 0; i < 103; ++i)
        items.push_back(clip("A", 0.001));
    items.push_back(gap(0));
    items.push_back(clip("B", 5));
    std::map<ImportNote::Severity, int> noted;
    for (const ImportNote &note : read(timeline({track(items)})).notes) {
        if (note.code == QLatin1String("no-frame"))
            noted[note.severity] += note.count;
    }
    EXPECT_EQ(noted, (std::map<ImportNote::Severity, int>{{ImportNote::Info, 102}, {ImportNote::Loss, 103}}));
}
