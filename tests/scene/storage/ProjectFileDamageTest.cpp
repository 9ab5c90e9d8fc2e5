#include "scene/base/UT_SharedPtr.h"
#include "scene/project/SC_Project.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"
#include "support/Golden.h"
#include "support/ProjectText.h"
#include "support/SampleProject.h"

#include <QRegularExpression>

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace
{

QByteArray sample()
{
    TestSession session;
    SC_Project *project = session.newProject(QStringLiteral("/nowhere"), QStringLiteral("p"));
    fillWithEverything(*project);
    return SC_ProjectFile::toText(*project, QStringLiteral("p"));
}

/// What reading gives once it has been saved and read again: the same, and nothing to report.
void expectSettled(const SC_Project &project)
{
    const QByteArray text = SC_ProjectFile::toText(project, QStringLiteral("p"));
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> again(SC_ProjectFile::fromText(text, QStringLiteral("/nowhere/p.plotka"), report));
    ASSERT_TRUE(again) << textOf(report);
    EXPECT_EQ(textOf(report), "");
    EXPECT_EQ(textOf(*again), textOf(project));
    EXPECT_EQ(SC_ProjectFile::toText(*again, QStringLiteral("p")), text);
}

std::multiset<std::string> linesOf(const std::string &text)
{
    std::multiset<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);)
        lines.insert(line);
    return lines;
}

/// The lines that one text has more often than the other.
std::string differenceOf(const std::string &before, const std::string &after)
{
    const std::multiset<std::string> a = linesOf(before);
    const std::multiset<std::string> b = linesOf(after);
    std::string difference;
    std::set<std::string> all(a.begin(), a.end());
    all.insert(b.begin(), b.end());
    for (const std::string &line : all) {
        if (a.count(line) > b.count(line))
            difference += "    - " + line + '\n';
        if (b.count(line) > a.count(line))
            difference += "    + " + line + '\n';
    }
    return difference;
}

/// What a changed text reads as, compared with what the whole one does.
std::string outcomeOf(const QByteArray &text, const std::string &whole)
{
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> project(SC_ProjectFile::fromText(text, QStringLiteral("/nowhere/p.plotka"), report));
    std::string outcome;
    std::istringstream told(textOf(report));
    for (std::string line; std::getline(told, line);)
        outcome += "    " + line.substr(line.find(": ") + 2) + '\n';
    EXPECT_EQ(report.hasErrors(), !project);
    if (!project)
        return outcome;
    expectSettled(*project);
    return outcome + differenceOf(whole, textOf(*project));
}

std::string readFailing(const QByteArray &text)
{
    const std::string read = readAsText(text);
    EXPECT_EQ(read.substr(0, 11), "no project\n");
    return read.substr(std::min<std::size_t>(11, read.size()));
}

QByteArray withScene(const QByteArray &content)
{
    return documentOf("<scene object='1' scene='2'>" + content + "</scene>");
}

/// The blocks and the report of one sequence with that content.
std::string sequenceOf(const QByteArray &content)
{
    std::istringstream read(readAsText(withScene("<sequence name='s'>" + content + "</sequence>")));
    std::string result;
    for (std::string line; std::getline(read, line);) {
        if (line.rfind("    ", 0) == 0 || line.rfind("p.plotka", 0) == 0)
            result += line + '\n';
    }
    return result;
}

} // namespace

// Every attribute of a file that has everything, one at a time: absent, empty, and unreadable.
TEST(DamagedProjectFile, IsReadButForWhatIsDamaged)
{
    const QByteArray text = sample();
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> project(SC_ProjectFile::fromText(text, QStringLiteral("/nowhere/p.plotka"), report));
    const std::string whole = textOf(*project);

    const QString document = QString::fromUtf8(text);
    const QRegularExpression attribute(QStringLiteral(" ([A-Za-z]+)=\"([^\"]*)\""));
    std::string told;
    std::set<std::string> seen;
    for (auto matches = attribute.globalMatch(document, document.indexOf(QStringLiteral("<plotka")));
         matches.hasNext();) {
        const QRegularExpressionMatch match = matches.next();
        const qsizetype line = document.left(match.capturedStart()).count(QLatin1Char('\n')) + 1;
        const qsizetype tag = document.lastIndexOf(QLatin1Char('<'), match.capturedStart());
        const std::string element =
            document.mid(tag + 1, document.indexOf(QLatin1Char(' '), tag) - tag - 1).toStdString();
        const auto replaced = [&](const QString &by) {
            return QString(document).replace(match.capturedStart(), match.capturedLength(), by).toUtf8();
        };
        const QString name = match.captured(1);
        // Once for each attribute of each kind of element.
        const QString rest = document.mid(tag, document.indexOf(QLatin1Char('>'), tag) - tag);
        const std::string kind =
            rest.section(QStringLiteral("class=\""), 1).section(QLatin1Char('"'), 0, 0).toStdString();
        if (!seen.insert(element + kind + match.captured(1).toStdString()).second)
            continue;
        told += element + ' ' + name.toStdString() + ", line " + std::to_string(line) + '\n';
        std::string values;
        std::string outcome;
        for (const char *value : {"", "\"\"", "\"?\"", "\"99999999999999999999\""}) {
            const QString by = *value ? QStringLiteral(" %1=%2").arg(name, QString::fromLatin1(value)) : QString();
            const std::string next = outcomeOf(replaced(by), whole);
            if (!values.empty() && next != outcome)
                told += "  " + std::exchange(values, std::string()) + '\n' + outcome;
            outcome = next;
            values += (values.empty() ? "" : ", ") + std::string(*value ? value : "absent");
        }
        told += "  " + values + '\n' + outcome;
    }
    expectGolden("project/damaged_attributes.txt", told);
}

// Each line of the file taken away or told twice: ids given twice, elements without their ends.
TEST(DamagedProjectFile, NeverBreaksTheReader)
{
    const QByteArray text = sample();
    const QList<QByteArray> lines = text.split('\n');
    for (qsizetype i = 0; i < lines.size(); ++i) {
        for (bool twice : {false, true}) {
            QList<QByteArray> changed = lines;
            if (twice)
                changed.insert(i, lines[i]);
            else
                changed.removeAt(i);
            SC_FileReport report;
            const UT_SharedPtr<SC_Project> project(
                SC_ProjectFile::fromText(changed.join('\n'), QStringLiteral("p.plotka"), report));
            EXPECT_EQ(report.hasErrors(), !project);
            if (project)
                expectSettled(*project);
        }
    }
}

TEST(DamagedProjectFile, IsAnErrorWhereverItIsCutOff)
{
    const QByteArray text = sample();
    for (qsizetype size = 0; size + 1 < text.size(); size += size < 2000 ? 1 : 37) {
        SC_FileReport report;
        EXPECT_EQ(SC_ProjectFile::fromText(text.left(size), QStringLiteral("p.plotka"), report), nullptr) << size;
        ASSERT_EQ(report.entries().empty() ? 0 : report.entries().back().line > 0, 1) << size;
        EXPECT_TRUE(report.hasErrors());
    }
    EXPECT_EQ(readFailing(text.left(1500)), "p.plotka:32:4: error: the file is truncated\n");
}

TEST(DamagedProjectFile, IsAnErrorWhenItIsNoProject)
{
    EXPECT_EQ(readFailing(""), "p.plotka:1:1: error: the file is truncated\n");
    EXPECT_EQ(readFailing("<storyboard/>"), "p.plotka:1:14: error: this is no Plotka project\n");
    EXPECT_EQ(readFailing("{\"OTIO_SCHEMA\": \"Timeline.1\"}"), "p.plotka:1:2: error: Start tag expected.\n");
    EXPECT_EQ(readFailing(documentOf("")), "p.plotka:1:79: error: the project has no scene\n");
    EXPECT_EQ(readFailing(documentOf("<scene/>")), "p.plotka:1:78: error: the ids of the top scene cannot be read\n");
    EXPECT_NE(readFailing(withScene("") + "<more/>").find("error: "), std::string::npos);
    EXPECT_NE(readFailing(withScene("</a>")).find("error: "), std::string::npos);
}

TEST(DamagedProjectFile, OfANewerVersionIsRefused)
{
    EXPECT_EQ(readFailing("<plotka format='3'><later/></plotka>"),
        "p.plotka:1:20: error: the project was saved by a newer version: its format is 3, the newest known is 2\n");
    EXPECT_NE(
        readFailing("<plotka format='0' nextId='1' rate='24' startTimecode='0'/>").find("header"), std::string::npos);
}

TEST(DamagedProjectFile, IsAnErrorWhenAnIdIsGivenTwice)
{
    const std::string twice = " error: the id 2 is given twice\n";
    for (const QByteArray &content : {
             QByteArray("<scene object='1' scene='2'/><scene object='3' scene='2'/>"),
             QByteArray("<scene object='1' scene='2'/><scene object='2' scene='3'/>"),
             QByteArray("<scene object='2' scene='2'/>"),
             QByteArray("<scene object='1' scene='2'><sounds name=''><sound id='2' from='1' to='1'/></sounds></scene>"),
             QByteArray("<scene object='1' scene='2'><sequence name=''><transition id='2'/></sequence></scene>"),
         })
        EXPECT_NE(readFailing(documentOf(content)).find(twice), std::string::npos) << content.toStdString();
}

TEST(DamagedProjectFile, IsAnErrorWhenItWouldTakeForEver)
{
    QByteArray wide = "<a";
    for (int i = 0; i < 200000; ++i)
        wide += " a" + QByteArray::number(i) + "='1'";
    EXPECT_NE(readFailing(withScene(wide + "/>")).find("an element has more than 256 attributes"), std::string::npos);

    const QByteArray bomb = "<!DOCTYPE plotka [<!ENTITY a 'aaaaaaaaaa'><!ENTITY b '&a;&a;&a;'>]>\n";
    EXPECT_EQ(readFailing("<?xml version='1.0'?>\n" + bomb + withScene("")),
        "p.plotka:2:1: error: document types are not allowed\n");
    EXPECT_NE(readFailing(withScene("&b;")).find("error: "), std::string::npos);
    EXPECT_NE(readFailing(QByteArray("\xFF\xFE<\0p\0", 6)).find("not in UTF-8"), std::string::npos);
}

TEST(DamagedProjectFile, LeavesOutWhatIsUnknown)
{
    EXPECT_EQ(readAsText(withScene("<later><scene/></later><sequence name='s'><later/></sequence>")),
        "project \"p\", rate 24, start 0, next id 100\nscene 2, object 1\n  sequence \"s\"\n  GROUP \"Top\"\n"
        "p.plotka:1:105: warning: later: left out: it is not known here\n"
        "p.plotka:1:148: warning: later: left out: it is not known here\n");
}

TEST(DamagedProjectFile, TellsOfTextBetweenElements)
{
    EXPECT_EQ(readAsText(documentOf("<scene object='1' scene='2'>\n<sequence name='s'/> stray\nwords<!-- no words -->\n"
                                    "</scene>&#32;<![CDATA[more]]>")),
        "project \"p\", rate 24, start 0, next id 100\nscene 2, object 1\n  sequence \"s\"\n  GROUP \"Top\"\n"
        "p.plotka:3:7: warning: text: left out: no text is known between elements here\n"
        "p.plotka:4:30: warning: text: left out: no text is known between elements here\n");
    const std::string inside = readAsText(withScene("<sequence name='s'><empty from='1' frames='2'>x</empty></sequence>"
                                                    "<node class='group' number='1' name='Top'>y</node>"));
    EXPECT_NE(inside.find("text: left out"), inside.rfind("text: left out"));
}

TEST(DamagedProjectFile, TellsOfAThousandWarningsAndCountsTheRest)
{
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> project(
        SC_ProjectFile::fromText(withScene(QByteArray("<x/>").repeated(50000)), QStringLiteral("p.plotka"), report));
    ASSERT_TRUE(project);
    ASSERT_EQ(report.entries().size(), 1001u);
    EXPECT_EQ(report.entries().back().message, QStringLiteral("and 49000 more like these"));
}

TEST(DamagedProjectFile, LeavesOutASceneWithoutIdsButNotTheTopOne)
{
    for (const char *ids : {"", "object='3'", "scene='3'", "object='0' scene='3'", "object='3' scene='x'",
             "object='9223372036854775807' scene='3'"}) {
        const std::string read = readAsText(documentOf(QByteArray("<scene object='1' scene='2'/><scene ") + ids
            + "><sequence name='lost'/></scene><scene object='5' scene='6'/>"));
        EXPECT_EQ(read.find("lost"), std::string::npos) << ids;
        EXPECT_NE(read.find("warning: scene: left out: its ids cannot be read"), std::string::npos) << ids;
        EXPECT_NE(read.find("scene 6, object 5"), std::string::npos) << ids;
    }
}

TEST(DamagedProjectFile, LeavesOutARecordWithoutATypeAndKeepsTheOthers)
{
    const std::string read =
        readAsText(withScene("<metadata name='a'/><metadata type='int' name='b'><int value='?'/></metadata>"
                             "<metadata type='int' name='c'><int value='3'/></metadata>"));
    EXPECT_EQ(read.find("name=\"a\""), std::string::npos);
    EXPECT_NE(read.find("name=\"b\" creator=\"\" version=\"\"/> (not valid)"), std::string::npos);
    EXPECT_NE(read.find("<int value=\"3\"/>"), std::string::npos);
    EXPECT_NE(read.find("warning: record \"\": a record without a type"), std::string::npos);
    EXPECT_NE(read.find("warning: record \"int\": the record has no readable value"), std::string::npos);
}

TEST(DamagedSequence, PutsItsBlocksInOrder)
{
    EXPECT_EQ(sequenceOf("<empty from='11' frames='5'/><clip from='1' frames='10' object='3' scene='4'/>"),
        "    1-10 object 3, scene 4\n    11-15 empty\n");
}

TEST(DamagedSequence, LeavesOutABlockThatOverlapsOrHasNoFrames)
{
    EXPECT_EQ(sequenceOf("<empty from='1' frames='10'/><empty from='10' frames='5'/>"),
        "    1-10 empty\np.plotka:1:175: warning: block of \"s\": left out: its frames overlap those of another "
        "block\n");
    for (const char *range : {"from='0' frames='1'", "from='1' frames='0'", "from='2147483647' frames='2'",
             "from='-1' frames='3'", "from='4294967296' frames='1'", "from='1.5' frames='1'"}) {
        const std::string read = sequenceOf(QByteArray("<empty ") + range + "/>");
        EXPECT_EQ(read.find("    "), std::string::npos) << range;
        EXPECT_NE(read.find("its frames or ids cannot be read"), std::string::npos) << range;
    }
    EXPECT_EQ(sequenceOf("<empty from='2147483647' frames='1'/>"), "    2147483647-2147483647 empty\n");
}

TEST(DamagedSequence, TakesNoIdFromABlockThatIsLeftOut)
{
    const std::string read = sequenceOf("<clip from='1' frames='5' object='100' scene='101'/>"
                                        "<clip from='6' frames='5' object='102' scene='101'/>"
                                        "<clip from='11' frames='5' object='102' scene='103'/>");
    EXPECT_EQ(
        read.substr(0, read.find("p.plotka")), "    1-5 object 100, scene 101\n    11-15 object 102, scene 103\n");
}

TEST(DamagedSequence, PlacesASceneWhereItIsToldAgainWhenThereWasNoRoomBefore)
{
    const std::string read = sequenceOf("<empty from='1' frames='5'/><clip from='4' frames='10' object='3' scene='4'/>"
                                        "<clip from='20' frames='10' object='3' scene='4'/>");
    EXPECT_EQ(read.substr(0, read.find("p.plotka")), "    1-5 empty\n    20-29 object 3, scene 4\n");
    EXPECT_NE(read.find("its frames overlap those of another block"), std::string::npos);
}

TEST(DamagedSequence, LeavesOutASceneThatIsPlacedAlready)
{
    for (const char *again : {"object='3' scene='4'", "object='3' scene='5'", "object='5' scene='4'"}) {
        const std::string read = sequenceOf(QByteArray("<clip from='1' frames='5' object='3' scene='4'/>"
                                                       "<clip from='6' frames='5' ")
            + again + "/><clip from='11' frames='5' object='6' scene='7'/>");
        EXPECT_EQ(read.substr(0, read.find("p.plotka")), "    1-5 object 3, scene 4\n    11-15 object 6, scene 7\n");
        EXPECT_NE(read.find("its scene is placed already"), std::string::npos);
    }
}

TEST(DamagedSequence, LeavesOutASceneUnderAnotherObjectIdWhereverTheSceneIsTold)
{
    const QByteArray top = "<scene object='1' scene='2'><sequence name='s'><clip from='1' frames='9' object='5' "
                           "scene='6'/><clip from='10' frames='9' object='55' scene='7'/></sequence></scene>";
    const QByteArray bottom = "<scene object='3' scene='4'><sequence name='t'><clip from='1' frames='9' object='5' "
                              "scene='6'/><clip from='10' frames='9' object='55' scene='6'/></sequence></scene>";
    const QByteArray scene = "<scene object='55' scene='6'/>";
    const QByteArray first = "<scene object='8' scene='9'/>";
    for (const QByteArray &content :
        {top + bottom + scene, first + top + scene + bottom, first + scene + top + bottom}) {
        const std::string read = readAsText(documentOf(content));
        EXPECT_NE(read.find("scene 6, object 55"), std::string::npos);
        EXPECT_NE(read.find("  sequence \"s\"\n  GROUP"), std::string::npos) << read;
        EXPECT_NE(read.find("  sequence \"t\"\n    10-18 object 55, scene 6\n  GROUP"), std::string::npos) << read;
        EXPECT_NE(read.find("block of \"s\", object 5: left out: it places scene 6 under another object id"),
            std::string::npos);
        EXPECT_NE(
            read.find("block of \"s\", object 55: left out: the id 55 belongs to something else"), std::string::npos);
        EXPECT_NE(read.find("block of \"t\", object 5: left out: it places scene 6 under another object id"),
            std::string::npos);
    }
}

TEST(DamagedSequence, LeavesOutWhatHasTheIdOfSomethingElse)
{
    const std::string told = readAsText(withScene(
        "<sequence name='s'><clip from='1' frames='10' object='3' scene='4'/>"
        "<transition from='9' frames='2' id='5' before='1'/><clip from='9' frames='9' object='6' scene='7'/>"
        "<transition from='17' frames='1' id='3' before='1'/><clip from='17' frames='9' object='9' scene='10'/>"
        "<clip from='26' frames='9' object='5' scene='11'/><clip from='35' frames='9' object='12' scene='8'/>"
        "<clip from='44' frames='9' object='13' scene='13'/></sequence>"
        "<sounds name='a'><sound id='8' from='1' to='2'/></sounds>"));
    EXPECT_NE(
        told.find("    1-10 object 3, scene 4\n    9-10 transition 5, 1 before the cut, type 0, angle 0\n"
                  "    9-17 object 6, scene 7\n    18-25 object 9, scene 10\n  sounds \"a\"\n    1-2 sound 8 \"\"\n"),
        std::string::npos)
        << told;
    for (const char *left : {"transition of \"s\": left out: the id 3 belongs to something else",
             "block of \"s\", object 5: left out: the id 5 belongs to something else",
             "block of \"s\", object 12: left out: the id 8 belongs to something else",
             "block of \"s\", object 13: left out: the id 13 belongs to something else"})
        EXPECT_NE(told.find(left), std::string::npos) << left << '\n' << told;
}

TEST(DamagedSequence, CutsWhereATransitionCannotBe)
{
    const auto read = [](const char *transition) {
        return sequenceOf(QByteArray("<warp from='1' frames='12' object='3' scene='4' start='1' end='12'/>")
            + transition + "<warp from='9' frames='10' object='5' scene='6' start='1' end='10'/>");
    };
    EXPECT_EQ(read("<transition from='9' frames='4' id='7' before='1'/>"),
        "    1-12 object 3, scene 4, shows 1 to 12\n"
        "    9-12 transition 7, 1 before the cut, type 0, angle 0\n"
        "    9-18 object 5, scene 6, shows 1 to 10\n");
    const std::string cut = "    1-8 object 3, scene 4, shows 1 to 8\n    9-18 object 5, scene 6, shows 1 to 10\n";
    for (const char *bad : {"<transition/>", "<transition from='8' frames='5' id='7' before='1'/>",
             "<transition from='9' frames='3' id='7' before='1'/>",
             "<transition from='9' frames='4' id='7' before='5'/>",
             "<transition from='9' frames='4' id='?' before='1'/>",
             "<transition from='9' frames='0' id='7' before='0'/>"}) {
        const std::string told = read(bad);
        EXPECT_EQ(told.substr(0, told.find("p.plotka")), cut) << bad;
        EXPECT_NE(told.find("transition of \"s\": left out"), std::string::npos) << bad;
    }
}

TEST(DamagedSequence, LeavesOutATransitionThatLeadsNowhere)
{
    const std::string told =
        sequenceOf("<empty from='1' frames='4'/><transition from='5' frames='4' id='7' before='1'/>"
                   "<transition from='5' frames='4' id='8' before='1'/>");
    EXPECT_EQ(told.substr(0, told.find("p.plotka")), "    1-4 empty\n");
    EXPECT_NE(told.find("it leads into no block"), told.rfind("it leads into no block"));
}

TEST(DamagedSequence, LeavesOutTransitionsThatOverlapOneAnother)
{
    const std::string told = sequenceOf("<clip from='1' frames='10' object='3' scene='4'/>"
                                        "<transition from='5' frames='6' id='5' before='2'/>"
                                        "<clip from='5' frames='8' object='6' scene='7'/>"
                                        "<transition from='8' frames='5' id='8' before='2'/>"
                                        "<clip from='8' frames='10' object='9' scene='10'/>");
    EXPECT_NE(told.find("transition of \"s\": left out: it has no room between the two blocks"), std::string::npos)
        << told;
    EXPECT_EQ(told.find("block of"), std::string::npos) << told;
}

TEST(DamagedSequence, OfManyBlocksInReverseOrderIsReadInTime)
{
    QByteArray blocks;
    for (int i = 200000; i > 0; --i)
        blocks += "<empty from='" + QByteArray::number(i) + "' frames='1'/>";
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> project(SC_ProjectFile::fromText(
        withScene("<sequence name='s'>" + blocks + "</sequence>"), QStringLiteral("p.plotka"), report));
    ASSERT_TRUE(project);
    EXPECT_TRUE(report.isEmpty());
}

TEST(DamagedNetwork, LeavesOutLinksThatLeadToNothingFitting)
{
    const std::string told = readAsText(withScene(
        "<sequence name='s'><link node='2'/><link node='3'/><link node='9'/><link node='2' "
        "scene='77'/><link/></sequence>"
        "<sounds name='a'><link node='2'/></sounds>"
        "<node class='group' number='1' name='Top' source='2'>"
        "<node class='element' number='2' name='e' parent='9' source='8'/>"
        "<node class='node' number='3' name='self' parent='3' source='3'/>"
        "<node class='node' number='4' name='one' parent='5'/><node class='node' number='5' name='two' parent='4'/>"
        "<node class='node' number='5' name='double'/><node class='node' name='unnumbered'/>"
        "<node class='later' number='6' name='gone'><node class='node' number='7' name='inner'/></node>"
        "</node>"));
    EXPECT_EQ(told.substr(0, told.find("p.plotka")),
        "project \"p\", rate 24, start 0, next id 100\nscene 2, object 1\n  sequence \"s\", drives \"e\"\n  sounds "
        "\"a\"\n"
        "  GROUP \"Top\"\n    READ \"e\", alignment 0, line art 0, driven by \"s\"\n     \"self\"\n     \"one\"\n     "
        "\"two\"\n"
        "     \"double\"\n     \"unnumbered\"\n");
    std::size_t refused = 0;
    for (std::size_t at = told.find("leads to no fitting node"); at != std::string::npos;
         at = told.find("leads to no fitting node", at + 1))
        ++refused;
    EXPECT_EQ(refused, 12u) << told;
}

TEST(DamagedNetwork, OfAChainWithoutEndIsReadInTime)
{
    QByteArray nodes;
    for (int i = 2; i < 100000; ++i) {
        const QByteArray number = QByteArray::number(i);
        nodes += "<node class='node' number='" + number + "' name='n' parent='" + QByteArray::number(i + 1) + "'/>";
    }
    SC_FileReport report;
    const UT_SharedPtr<SC_Project> project(SC_ProjectFile::fromText(
        withScene("<node class='group' number='1'>" + nodes + "</node>"), QStringLiteral("p.plotka"), report));
    ASSERT_TRUE(project);
    EXPECT_FALSE(report.isEmpty());
}
