#include "interchange/CutText.h"

#include <gtest/gtest.h>

using namespace CutText;

namespace
{

std::string rateOf(const QJsonObject &cut)
{
    return read(cut).plan.rate.asString().toStdString();
}

QJsonObject plotkaMetadata(const QJsonObject &own)
{
    return {{QStringLiteral("plotka"), own}};
}

} // namespace

TEST(OtioPlan, MakesAShotWithOnePanelOfEachClip)
{
    EXPECT_EQ(planOf({clip("A", 24), clip("", 12)}), "A 1-24 (1-24) |  25-36 (1-12)");
}

TEST(OtioPlan, LeavesGapsOpen)
{
    EXPECT_EQ(planOf({gap(10), clip("A", 24), gap(5), clip("B", 1), gap(3)}), "A 11-34 (1-24) | B 40-40 (1-1)");
}

TEST(OtioPlan, MakesPanelsOfWhatIsNested)
{
    const QJsonObject nest = track({clip("p", 10), gap(4), clip("", 6)}, "Video", "N");
    EXPECT_EQ(planOf({clip("A", 5), nest, clip("B", 5)}), "A 1-5 (1-5) | N 6-25 (p 1-10 15-20) | B 26-30 (1-5)");
}

TEST(OtioPlan, ShowsTheFirstVideoTrackOfANestedStack)
{
    const QJsonObject sound = track({clip("s", 30)}, "Audio");
    const QJsonObject below = track({clip("p", 10), clip("q", 5)});
    const QJsonObject above = track({clip("x", 20)});
    const OtioReading reading =
        read(timeline({track({with(stack({sound, below, above}), "name", QStringLiteral("N"))})}));
    EXPECT_EQ(print(reading.plan), "N 1-30 (p 1-10 q 11-15)");
    EXPECT_EQ(codes(reading), "nested-track nested-track gap-at-shot-edge");
}

TEST(OtioPlan, KeepsGapsAtTheEdgesOfAShot)
{
    const OtioReading reading = read(timeline({track({track({gap(2), clip("p", 3), gap(4)}, "Video", "N")})}));
    EXPECT_EQ(print(reading.plan), "N 1-9 (p 3-5)");
    EXPECT_EQ(codes(reading), "gap-at-shot-edge gap-at-shot-edge");
}

TEST(OtioPlan, TrimsWhatANestedTrackHoldsToItsRange)
{
    const QJsonObject nest = track({clip("p", 10), clip("q", 10), clip("r", 10)}, "Video", "N");
    EXPECT_EQ(planOf({with(nest, "source_range", range(5, 10))}), "N 1-10 (p 1-5 q 6-10)");
    EXPECT_EQ(planOf({with(nest, "source_range", range(-5, 40))}), "N 1-40 (p 6-15 q 16-25 r 26-35)");
    EXPECT_EQ(planOf({with(stack({nest}), "source_range", range(12, 3))}), " 1-3 (q 1-3)");
}

// file:     | p 10 | q 10 | r 10 |      nested, from frame 4
// shown:        4..............28       of which the outer track shows all but the first two
TEST(OtioPlan, TrimsThroughEveryLevel)
{
    const QJsonObject nest =
        with(track({clip("p", 10), clip("q", 10), clip("r", 10)}, "Video", "N"), "source_range", range(4, 24));
    const QJsonObject outer = with(track({nest, clip("B", 8)}), "source_range", range(2, 26));
    EXPECT_EQ(print(read(timeline({outer})).plan), "N 1-22 (p 1-4 q 5-14 r 15-22) | B 23-26 (1-4)");
    const QJsonObject shown = with(stack({outer}), "source_range", range(3, 20));
    EXPECT_EQ(print(read(shown).plan), "N 1-19 (p 1-1 q 2-11 r 12-19) | B 20-20 (1-1)");
}

TEST(OtioPlan, OpensGapsWhereARangeReachesOutside)
{
    const QJsonObject early = with(track({clip("A", 9)}), "source_range", range(-7, 16));
    EXPECT_EQ(print(read(timeline({early})).plan), "A 8-16 (1-9)");
    const QJsonObject late = with(track({clip("A", 9)}), "source_range", range(-86243, 1049));
    const OtioReading reading = read(timeline({late}));
    EXPECT_EQ(print(reading.plan), "");
    EXPECT_EQ(reading.plan.frameCount, 1049U);
    EXPECT_EQ(codes(reading), "trimmed-away empty-timeline");
}

TEST(OtioPlan, TakesTheLengthOfTheActiveMediaWithoutARange)
{
    const QJsonObject media = {{QStringLiteral("OTIO_SCHEMA"), QStringLiteral("MissingReference.1")},
        {QStringLiteral("available_range"), range(100, 6)}};
    const QJsonObject bare = without(clip("A", 1), "source_range");
    EXPECT_EQ(planOf({with(bare, "media_reference", media), clip("B", 2)}), "A 1-6 (1-6) | B 7-8 (1-2)");

    const QJsonObject other = with(media, "available_range", range(0, 9));
    const QJsonObject several = with(bare, "media_references",
        QJsonObject{{QStringLiteral("DEFAULT_MEDIA"), media}, {QStringLiteral("proxy"), other}});
    EXPECT_EQ(planOf({several}), "A 1-6 (1-6)");
    EXPECT_EQ(planOf({with(several, "active_media_reference_key", QStringLiteral("proxy"))}), "A 1-9 (1-9)");
}

TEST(OtioPlan, RoundsCumulativeTimesSoThatNoErrorAddsUp)
{
    EXPECT_EQ(planOf({clip("A", 0.4), clip("B", 0.4), clip("C", 0.4), clip("D", 1)}), "B 1-1 (1-1) | D 2-2 (1-1)");
    const OtioReading reading =
        read(timeline({track({clip("A", 71.94, 23.98), clip("B", 71.94, 23.98), clip("C", 90, 30)})}));
    EXPECT_EQ(print(reading.plan), "A 1-72 (1-72) | B 73-144 (1-72) | C 145-216 (1-72)");
    EXPECT_EQ(reading.plan.rate, UT_FrameRate(24000, 1001));
}

TEST(OtioPlan, RoundsPanelsInTheTimeOfTheTimeline)
{
    const QJsonObject nest = track({clip("p", 1.5), clip("q", 1.5), clip("r", 1.5)}, "Video", "N");
    EXPECT_EQ(planOf({clip("A", 0.5), nest}), "A 1-1 (1-1) | N 2-5 (p 1-1 q 2-3 r 4-4)");
}

TEST(OtioPlan, ConvertsOtherRatesExactly)
{
    EXPECT_EQ(planOf({clip("A", 24), clip("B", 30, 30), clip("C", 48000, 48000), clip("D", 1, 1)}),
        "A 1-24 (1-24) | B 25-48 (1-24) | C 49-72 (1-24) | D 73-96 (1-24)");
}

TEST(OtioPlan, TakesTheRateOfTheStartThenOfTheTrackThenOfItsFirstItem)
{
    const QJsonObject items = track({clip("A", 48000, 48000), clip("B", 30, 30), clip("C", 25, 25)});
    EXPECT_EQ(rateOf(timeline({items})), "30");
    const QJsonObject ranged = with(items, "source_range", range(0, 10, 29.97));
    EXPECT_EQ(rateOf(timeline({ranged})), "30000/1001");
    EXPECT_EQ(rateOf(with(timeline({ranged}), "global_start_time", time(0, 25))), "25");
    EXPECT_EQ(rateOf(with(timeline({ranged}), "global_start_time", time(0, 48000))), "30000/1001");
    EXPECT_EQ(rateOf(timeline({track({clip("s", 12, 12)}, "Audio"), items})), "30");
    EXPECT_EQ(rateOf(timeline({track({clip("s", 12, 12)}, "Audio")})), "12");
    EXPECT_EQ(rateOf(timeline({track({track({gap(5, 50)})})})), "50");
    EXPECT_EQ(rateOf(timeline({track({clip("A", 3000, 1001), clip("B", 1, 1000)})})), "1000");
    EXPECT_EQ(rateOf(timeline({track({clip("A", 3, 0.5), clip("B", 25, 25)})})), "1/2");
    EXPECT_EQ(rateOf(timeline({track({clip("A", 3, 0.001)})})), "1/1000");
    EXPECT_EQ(rateOf(timeline({})), "24");
}

TEST(OtioPlan, TakesTheRateItIsGiven)
{
    OtioOptions options;
    options.hasRate = true;
    options.rate = UT_FrameRate(12);
    const QByteArray text = R"({"OTIO_SCHEMA":"Clip.1","name":"A","source_range":{"OTIO_SCHEMA":"TimeRange.1",
        "duration":{"OTIO_SCHEMA":"RationalTime.1","value":24,"rate":24}}})";
    EXPECT_EQ(print(OtioImport::read(text, options).plan), "A 1-12 (1-12)");
}

TEST(OtioPlan, StartsItsTimecodeWhereTheCutDoes)
{
    const QJsonObject cut = timeline({track({clip("A", 3)})});
    EXPECT_EQ(read(with(cut, "global_start_time", time(86400))).plan.startTimecode, 86400U);
    EXPECT_EQ(read(cut).plan.startTimecode, 0U);
    const OtioReading negative = read(with(cut, "global_start_time", time(-5)));
    EXPECT_EQ(negative.plan.startTimecode, 0U);
    EXPECT_EQ(codes(negative), "start-out-of-range");
    const OtioReading between = read(with(cut, "global_start_time", time(0.5)));
    EXPECT_EQ(between.plan.startTimecode, 1U);
    EXPECT_EQ(codes(between), "rounded");
}

TEST(OtioPlan, MakesLayersOfFurtherVideoTracks)
{
    const QJsonObject upper = track({gap(7), clip("C", 9), clip("D", 2)}, "Video", "V2");
    EXPECT_EQ(print(read(timeline({track({clip("A", 10)}), upper, track({clip("E", 1)}, "Video", "V3")})).plan),
        "A 1-10 (1-10)\nlayer V2: C 8-16 D 17-18\nlayer V3: E 1-1");
}

TEST(OtioPlan, MakesSoundsOfAudioTracks)
{
    const QJsonObject sound =
        track({clip("s", 44100, 44100), gap(44100, 44100), clip("t", 44100, 44100)}, "Audio", "A1");
    const OtioReading reading = read(timeline({sound, track({clip("A", 10)})}));
    EXPECT_EQ(print(reading.plan), "A 1-10 (1-10)\nsound A1: s 1-24 t 49-72");
    EXPECT_EQ(reading.plan.frameCount, 72U);
}

TEST(OtioPlan, MarksWhatIsDisabled)
{
    const QJsonObject off = with(clip("B", 5), "enabled", false);
    EXPECT_EQ(planOf({clip("A", 5), off}), "A 1-5 (1-5) | B off 6-10 (1-5)");
    const QJsonObject items = track({clip("A", 5)});
    EXPECT_EQ(print(read(timeline({with(items, "enabled", false), items})).plan), "A off 1-5 (1-5)\nlayer : A 1-5");
    const QJsonObject allOff = with(timeline({items, items}), "tracks", with(stack({items, items}), "enabled", false));
    EXPECT_EQ(print(read(allOff).plan), "A off 1-5 (1-5)\nlayer off : A off 1-5");

    EXPECT_EQ(planOf({track({clip("p", 5), off}, "Video", "N")}), "N 1-10 (p 1-5 B off 6-10)");
    EXPECT_EQ(planOf({stack({with(items, "enabled", false)})}), " 1-5 (A off 1-5)");
    EXPECT_EQ(
        planOf({with(track({clip("p", 5), off}, "Video", "N"), "enabled", false)}), "N off 1-10 (p 1-5 B off 6-10)");
}

TEST(OtioPlan, TakesActAndSequenceFromItsOwnMetadata)
{
    const QJsonObject own = {
        {QStringLiteral("act"), QStringLiteral("I")}, {QStringLiteral("sequence"), QStringLiteral("010")}};
    const OtioReading reading =
        read(timeline({track({with(clip("A", 5), "metadata", plotkaMetadata(own)), clip("B", 5)})}));
    ASSERT_EQ(reading.plan.shots.size(), 2U);
    EXPECT_EQ(reading.plan.shots[0].act, QStringLiteral("I"));
    EXPECT_EQ(reading.plan.shots[0].sequence, QStringLiteral("010"));
    EXPECT_TRUE(reading.plan.shots[1].act.isEmpty());
    EXPECT_EQ(codes(reading), "");

    const QJsonObject numbered = {{QStringLiteral("act"), 1}};
    const OtioReading odd = read(timeline({track({with(clip("A", 5), "metadata", plotkaMetadata(numbered))})}));
    EXPECT_TRUE(odd.plan.shots[0].act.isEmpty());
    EXPECT_EQ(codes(odd), "metadata");
}

// file:   | A 24 | B 24 |, 2 before the cut and 3 after it
// frames: 1      25    48
//         |A           |27
//            23|          B|
TEST(OtioPlan, LetsBothShotsGrowUnderATransition)
{
    EXPECT_EQ(planOf({clip("A", 24), dissolve(2, 3), clip("B", 24), clip("C", 5)}),
        "A 1-27 (1-27) | B 23-48 (1-26) | C 49-53 (1-5)\ntransition after shot 0: 23-27 cut 25");
}

TEST(OtioPlan, LetsATransitionStandOnOneSideOfTheCut)
{
    EXPECT_EQ(planOf({clip("A", 24), dissolve(2, 0), clip("B", 24)}),
        "A 1-24 (1-24) | B 23-48 (1-26)\ntransition after shot 0: 23-24 cut 25");
    EXPECT_EQ(planOf({clip("A", 24), dissolve(0, 3), clip("B", 24)}),
        "A 1-27 (1-27) | B 25-48 (1-24)\ntransition after shot 0: 25-27 cut 25");
}

TEST(OtioPlan, GrowsTheOuterPanelsUnderATransition)
{
    const QJsonObject first = track({clip("p", 10), clip("q", 10)}, "Video", "N");
    const QJsonObject second = track({clip("r", 10), clip("s", 10)}, "Video", "O");
    EXPECT_EQ(planOf({first, dissolve(2, 3), second}),
        "N 1-23 (p 1-10 q 11-23) | O 19-40 (r 1-12 s 13-22)\ntransition after shot 0: 19-23 cut 21");
}

TEST(OtioPlan, KeepsGapsAtTheEdgesOfAShotUnderATransition)
{
    const QJsonObject first = track({clip("p", 10), gap(4)}, "Video", "N");
    const QJsonObject second = track({gap(4), clip("r", 10)}, "Video", "O");
    EXPECT_EQ(planOf({first, dissolve(2, 3), second}),
        "N 1-17 (p 1-13) | O 13-28 (r 5-16)\ntransition after shot 0: 13-17 cut 15");
}

TEST(OtioPlan, ShortensATransitionThatLeavesAShotNoFrame)
{
    const OtioReading reading = read(timeline({track({clip("A", 3), dissolve(9, 9), clip("B", 4)})}));
    EXPECT_EQ(print(reading.plan), "A 1-6 (1-6) | B 2-7 (1-6)\ntransition after shot 0: 2-6 cut 4");
    EXPECT_EQ(codes(reading), "transition-shortened");
}

TEST(OtioPlan, LetsTheLaterOfTwoTransitionsGiveWay)
{
    const OtioReading reading =
        read(timeline({track({clip("A", 20), dissolve(5, 6), clip("B", 10), dissolve(6, 5), clip("C", 20)})}));
    EXPECT_EQ(print(reading.plan),
        "A 1-26 (1-26) | B 16-35 (1-20) | C 28-50 (1-23)\n"
        "transition after shot 0: 16-26 cut 21\ntransition after shot 1: 28-35 cut 31");
    EXPECT_EQ(codes(reading), "transition-shortened");

    // Also where the earlier one takes nothing of the shot between them.
    EXPECT_EQ(planOf({clip("A", 9), dissolve(2, 0), clip("B", 1), dissolve(1, 0), clip("C", 9)}),
        "A 1-9 (1-9) | B 8-10 (1-3) | C 11-19 (1-9)\ntransition after shot 0: 8-9 cut 10");
}

TEST(OtioPlan, LeavesOutATransitionThatJoinsNoTwoShots)
{
    const auto codesOf = [](const std::vector<QJsonObject> &items) { return codes(read(timeline({track(items)}))); };
    EXPECT_EQ(codesOf({dissolve(2, 2), clip("A", 9)}), "transition-at-edge");
    EXPECT_EQ(codesOf({clip("A", 9), dissolve(2, 2)}), "transition-at-edge");
    EXPECT_EQ(codesOf({dissolve(2, 2)}), "default-rate empty-timeline transition-at-edge");
    EXPECT_EQ(codesOf({clip("A", 9), dissolve(2, 2), gap(3), clip("B", 9)}), "transition-beside-gap");
    EXPECT_EQ(codesOf({clip("A", 9), gap(3), dissolve(2, 2), clip("B", 9)}), "transition-beside-gap");
    EXPECT_EQ(codesOf({clip("A", 9), dissolve(2, 2), dissolve(1, 1), clip("B", 9)}), "transition-doubled");
    EXPECT_EQ(codesOf({clip("A", 9), dissolve(0, 0), clip("B", 9)}), "transition-no-frame");
    EXPECT_EQ(codesOf({clip("A", 9), dissolve(0.4, 0.4), clip("B", 9)}), "transition-no-frame");
    EXPECT_EQ(codesOf({clip("A", 1), dissolve(2, 2), clip("B", 1)}), "transition-no-room");
}

TEST(OtioPlan, JoinsAcrossAnItemThatHasNoFrame)
{
    EXPECT_EQ(planOf({clip("A", 9), dissolve(1, 1), clip("x", 0.1), clip("B", 9)}),
        "A 1-10 (1-10) | B 9-18 (1-10)\ntransition after shot 0: 9-10 cut 10");
}

TEST(OtioPlan, DropsATransitionWhoseShotIsTrimmedAway)
{
    const QJsonObject items = track({clip("A", 9), dissolve(1, 1), clip("B", 9), dissolve(1, 1), clip("C", 9)});
    EXPECT_EQ(codes(read(timeline({with(items, "source_range", range(9, 9))}))),
        "trimmed-away trimmed-away transition-at-edge transition-at-edge");
}

TEST(OtioPlan, ReadsStackTrackAndClipAtTheTop)
{
    EXPECT_EQ(print(read(stack({track({clip("A", 5)})})).plan), "A 1-5 (1-5)");
    EXPECT_EQ(print(read(track({clip("A", 5)})).plan), "A 1-5 (1-5)");
    EXPECT_EQ(print(read(track({clip("A", 5)}, "Audio", "T")).plan), "\nsound T: A 1-5");
    EXPECT_EQ(print(read(clip("A", 5)).plan), "A 1-5 (1-5)");
    EXPECT_EQ(read(clip("A", 5)).plan.name, QStringLiteral("A"));
    EXPECT_EQ(read(track({}, "Video", "T")).plan.name, QStringLiteral("T"));
    EXPECT_EQ(read(with(timeline({}), "name", QStringLiteral("film"))).plan.name, QStringLiteral("film"));
}

TEST(OtioPlan, ReadsTheFirstCutOfACollection)
{
    const QJsonObject effect = {{QStringLiteral("OTIO_SCHEMA"), QStringLiteral("Effect.1")}};
    for (const char *schema : {"SerializableCollection.1", "SerializeableCollection.1"}) {
        const QJsonObject collection = {{QStringLiteral("OTIO_SCHEMA"), QString::fromLatin1(schema)},
            {QStringLiteral("children"), QJsonArray{effect, clip("A", 5), clip("B", 5)}}};
        const OtioReading reading = read(collection);
        EXPECT_EQ(print(reading.plan), "A 1-5 (1-5)");
        EXPECT_EQ(codes(reading), "collection-rest");
    }
}

TEST(OtioPlan, ReadsOldSchemas)
{
    const auto named = [](const QJsonObject &object, const char *schema) {
        return with(object, "OTIO_SCHEMA", QString::fromLatin1(schema));
    };
    const QJsonObject sequence = named(
        track({named(clip("A", 5), "Clip.1"), named(gap(2), "Filler.1"), named(clip("B", 5), "Clip.1")}), "Sequence.1");
    const OtioReading reading = read(timeline({without(sequence, "kind")}));
    EXPECT_EQ(print(reading.plan), "A 1-5 (1-5) | B 8-12 (1-5)");
    EXPECT_EQ(codes(reading), "");
}

TEST(OtioPlan, ReadsItemsBesideTheTracksAsTracks)
{
    const OtioReading reading = read(stack({clip("X", 3), track({clip("A", 5)}), gap(9)}));
    EXPECT_EQ(print(reading.plan), "A 1-5 (1-5)\nlayer : X 1-3");
    EXPECT_EQ(reading.plan.frameCount, 9U);
    EXPECT_EQ(codes(reading), "item-beside-tracks");
    EXPECT_EQ(print(read(stack({clip("X", 3)})).plan), "X 1-3 (1-3)");
}

TEST(OtioPlan, EndsAtTheLastFrameThereIs)
{
    const OtioReading cut = read(timeline({track({gap(2147483600), clip("A", 100), clip("B", 5)})}));
    EXPECT_EQ(print(cut.plan), "A 2147483601-2147483647 (1-47)");
    EXPECT_EQ(cut.plan.frameCount, 2147483647U);
    EXPECT_EQ(codes(cut), "too-late too-late");
    const QJsonObject nest = track({clip("p", 40), clip("q", 60)}, "Video", "N");
    EXPECT_EQ(planOf({gap(2147483600), nest}), "N 2147483601-2147483647 (p 1-40 q 41-47)");
    EXPECT_EQ(planOf({gap(1e300), clip("A", 100)}), "");
}

TEST(OtioPlan, RefusesWhatIsNoCut)
{
    const auto errorOf = [](const QByteArray &text) { return OtioImport::read(text).error.message.toStdString(); };
    EXPECT_EQ(errorOf("{}"), "this is JSON, but not a cut: the first object has no OTIO_SCHEMA");
    EXPECT_EQ(
        errorOf(R"({"OTIO_SCHEMA":"Effect.1"})"), "the file holds a Effect.1, not a Timeline, Stack, Track or Clip");
    EXPECT_EQ(errorOf(R"({"OTIO_SCHEMA":"SerializableCollection.1","children":[{}]})"),
        "the collection holds no Timeline, Stack, Track or Clip");
    const OtioReading broken = OtioImport::read("{\n\"OTIO_SCHEMA\" \"Timeline.1\"}");
    EXPECT_EQ(broken.error.message.toStdString(), "a colon is expected here");
    EXPECT_EQ(broken.error.line, 2);
    EXPECT_EQ(broken.error.column, 15);
}

TEST(OtioPlan, RefusesMoreItemsThanItCanHold)
{
    const QByteArray text = R"({"OTIO_SCHEMA":"Track.1","children":[)" + QByteArray("0,").repeated(500'000) + "0]}";
    EXPECT_EQ(OtioImport::read(text).error.message.toStdString(), "the cut has more than 500000 items");
}
