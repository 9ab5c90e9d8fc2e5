#include "scene/metadata/PIO_MetadataInt.h"
#include "scene/metadata/PIO_MetadataString.h"
#include "scene/metadata/PIO_MetadataUnknown.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/network/MO_Module.h"
#include "scene/network/MO_Port.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"
#include "scene/timeline/AT_TimeWarpSeq.h"
#include "scene/timeline/TUSeqTimedValue.h"
#include "support/ProjectText.h"
#include "support/SampleProject.h"

#include <gtest/gtest.h>

#include <functional>

namespace
{

const QString kName = QStringLiteral("p");

QString text(const char *latin1)
{
    return QString::fromLatin1(latin1);
}

PIO_Metadata *newInt(const char *creator = "tests")
{
    return new PIO_MetadataInt(QString(), text(creator), text("1.0"));
}

PIO_Metadata *newString()
{
    return new PIO_MetadataString(QString(), text("tests"), text("1.0"));
}

PIO_Metadata *five()
{
    auto *record = new PIO_MetadataInt(QString(), text("tests"), text("1.0"));
    record->setValue(5);
    return record;
}

/// A project in memory whose top scene is followed by scenes with these records.
class Board
{
public:
    Board() : m_project(new SC_Project(text("/nowhere"), kName)) { m_project->addScene(); }

    Board &scene(std::initializer_list<PIO_Metadata *> records)
    {
        TUScene *const scene = m_project->addScene();
        for (PIO_Metadata *record : records)
            scene->metadatas()->add(record);
        return *this;
    }

    SC_Project &project() { return *m_project; }
    QByteArray file() { return SC_ProjectFile::toText(*m_project, kName); }

private:
    UT_SharedPtr<SC_Project> m_project;
};

struct Opened {
    UT_SharedPtr<SC_Project> project;
    std::string report;
};

Opened open(const QByteArray &file)
{
    SC_FileReport report;
    Opened opened{UT_SharedPtr<SC_Project>(SC_ProjectFile::fromText(file, text("/nowhere/p.plotka"), report)), {}};
    opened.report = textOf(report);
    return opened;
}

TUScene &sceneOf(const SC_Project &project, unsigned int index)
{
    return *dynamic_cast<TUScene *>(project.sceneAt(index));
}

/// The scenes as they stand in a file, without line breaks.
std::string scenesOf(const QByteArray &file)
{
    return file.mid(file.indexOf("<scene")).simplified().replace("> <", "><").toStdString();
}

std::string newRecordsOf(const QByteArray &file)
{
    const qsizetype from = file.indexOf("<newRecords");
    const qsizetype to = file.indexOf("<scene");
    return from < 0 || from > to ? std::string()
                                 : file.mid(from, to - from).simplified().replace("> <", "><").toStdString();
}

} // namespace

TEST(NewRecords, StandOnceInTheFile)
{
    Board board;
    board.scene({newInt(), newString()}).scene({newInt(), newString()});
    EXPECT_EQ(newRecordsOf(board.file()),
        "<newRecords number=\"1\"><metadata type=\"int\" name=\"\" creator=\"tests\" version=\"1.0\"/>"
        "<metadata type=\"string\" name=\"\" creator=\"tests\" version=\"1.0\"/></newRecords>");
    EXPECT_EQ(scenesOf(board.file()),
        "<scene object=\"1\" scene=\"2\"/>"
        "<scene object=\"3\" scene=\"4\"><newRecords as=\"1\"/></scene>"
        "<scene object=\"5\" scene=\"6\"><newRecords as=\"1\"/></scene></plotka>");
}

TEST(NewRecords, KeepTheirOrderAmongOthers)
{
    Board board;
    board.scene({newInt(), five(), newString(), newInt(), five()}).scene({newString(), newInt()});
    const QByteArray file = board.file();
    EXPECT_EQ(file.count("<newRecords as=\"1\"/>"), 1);
    EXPECT_EQ(file.count("<newRecords as=\"2\"/>"), 2) << "the same records in the same order";
    const Opened back = open(file);
    EXPECT_EQ(back.report, "");
    EXPECT_EQ(textOf(*back.project), textOf(board.project()));
    EXPECT_EQ(SC_ProjectFile::toText(*back.project, kName), file);
}

TEST(NewRecords, AreThoseWithoutANameThatSayNothing)
{
    Board board;
    board.scene({new PIO_MetadataInt(text("named"), text("tests"), text("1.0")), five(),
        new PIO_MetadataUnknown(text("weather"), QString(), text("tests"), text("1.0"), QString()),
        new PIO_MetadataUnknown(text("int"), QString(), text("tests"), text("1.0"), text("<!-- more -->"))});
    EXPECT_EQ(newRecordsOf(board.file()), "");
    EXPECT_FALSE(board.file().contains("newRecords"));
}

TEST(NewRecords, AreToldApartByCreatorAndVersion)
{
    Board board;
    board.scene({newInt("a")}).scene({newInt("b")}).scene({newInt("a")});
    const QByteArray file = board.file();
    EXPECT_EQ(file.count("<newRecords as=\"1\"/>"), 2);
    EXPECT_EQ(file.count("<newRecords as=\"2\"/>"), 1);
    const Opened back = open(file);
    EXPECT_EQ(textOf(*back.project), textOf(board.project()));
}

TEST(NewRecords, AreSharedAfterOpeningAndWrittenAlikeWhenAskedFor)
{
    Board board;
    board.scene({newInt(), five(), newString()}).scene({newInt()});
    const QByteArray file = board.file();
    const Opened back = open(file);
    EXPECT_TRUE(sceneOf(*back.project, 1).metadatas()->isShared(0));
    EXPECT_FALSE(sceneOf(*back.project, 1).metadatas()->isShared(1));
    EXPECT_EQ(SC_ProjectFile::toText(*back.project, kName), file);
    sceneOf(*back.project, 1).metadatas()->begin();
    EXPECT_FALSE(sceneOf(*back.project, 1).metadatas()->isShared(0));
    EXPECT_EQ(SC_ProjectFile::toText(*back.project, kName), file);
}

TEST(NewRecords, AreNewNoMoreOnceTheySaySomething)
{
    Board board;
    board.scene({newInt()}).scene({newInt()});
    const Opened back = open(board.file());
    auto *const record = dynamic_cast<PIO_MetadataInt *>(sceneOf(*back.project, 2).metadatas()->own(0));
    ASSERT_NE(record, nullptr);
    record->setValue(7);
    const QByteArray changed = SC_ProjectFile::toText(*back.project, kName);
    EXPECT_EQ(changed.count("<newRecords as="), 1);
    const Opened again = open(changed);
    EXPECT_EQ(textOf(*again.project), textOf(*back.project));
    EXPECT_EQ(dynamic_cast<const PIO_MetadataInt &>(sceneOf(*again.project, 2).metadatas()->view()[0]).valueInt(), 7);
    EXPECT_FALSE(sceneOf(*again.project, 1).metadatas()->view()[0].isValid());
}

TEST(NewRecords, OfTypesThatAreNotKnownAreKept)
{
    const QByteArray file = "<plotka format=\"2\" name=\"p\" nextId=\"9\" rate=\"24\" startTimecode=\"0\">\n"
                            "  <newRecords number=\"7\">\n"
                            "    <metadata type=\"weather\" name=\"\" creator=\"x\" version=\"3\"><sky/></metadata>\n"
                            "  </newRecords>\n"
                            "  <scene object=\"1\" scene=\"2\"/>\n"
                            "  <scene object=\"3\" scene=\"4\"><newRecords as=\"7\"/></scene>\n"
                            "  <scene object=\"5\" scene=\"6\"><newRecords as=\"7\"/></scene>\n"
                            "</plotka>\n";
    const Opened opened = open(file);
    EXPECT_EQ(opened.report, "");
    const QByteArray saved = SC_ProjectFile::toText(*opened.project, kName);
    EXPECT_EQ(saved.count("<metadata type=\"weather\" name=\"\" creator=\"x\" version=\"3\"><sky/></metadata>"), 2)
        << "nobody can say that they are new";
    EXPECT_EQ(textOf(*open(saved).project), textOf(*opened.project));
}

TEST(NewRecords, AreReadAsIfTheyStoodInTheScene)
{
    const QByteArray head = "<plotka format=\"1\" name=\"p\" nextId=\"9\" rate=\"24\" startTimecode=\"0\">";
    const QByteArray record =
        "<metadata type=\"int\" name=\"\" creator=\"tests\" version=\"1.0\"><int value=\"5\"/></metadata>";
    const QByteArray longForm = head + "<scene object=\"1\" scene=\"2\">" + record + record + "</scene></plotka>";
    const QByteArray shortForm = head + "<newRecords number=\"1\">" + record + record
        + "</newRecords><scene object=\"1\" scene=\"2\"><newRecords as=\"1\"/></scene></plotka>";
    EXPECT_EQ(textOf(*open(shortForm).project), textOf(*open(longForm).project));
    EXPECT_EQ(SC_ProjectFile::toText(*open(shortForm).project, kName),
        SC_ProjectFile::toText(*open(longForm).project, kName));
}

TEST(NewRecords, ThatStandNowhereBeforeAreLeftOutAndTold)
{
    const QByteArray file = "<plotka format=\"2\" name=\"p\" nextId=\"9\" rate=\"24\" startTimecode=\"0\">\n"
                            "<scene object=\"1\" scene=\"2\"><newRecords as=\"1\"/></scene>\n"
                            "<newRecords number=\"1\"><metadata type=\"int\"/></newRecords>\n"
                            "<newRecords number=\"1\"><metadata type=\"string\"/></newRecords>\n"
                            "<newRecords number=\"x\"/>\n"
                            "<scene object=\"3\" scene=\"4\"><newRecords/><newRecords as=\"1\"/></scene>\n"
                            "</plotka>\n";
    const Opened opened = open(file);
    ASSERT_TRUE(opened.project);
    EXPECT_EQ(opened.report,
        "p.plotka:2:49: warning: records of scene 1: left out: what they are does not stand before the scene\n"
        "p.plotka:4:24: warning: newRecords: left out: its number cannot be read or is given twice\n"
        "p.plotka:5:25: warning: newRecords: left out: its number cannot be read or is given twice\n"
        "p.plotka:6:42: warning: records of scene 3: left out: what they are does not stand before the scene\n");
    EXPECT_EQ(sceneOf(*opened.project, 0).metadatas()->view().size(), 0U);
    EXPECT_EQ(sceneOf(*opened.project, 1).metadatas()->view().size(), 1U);
}

TEST(NewRecords, AreNotTakenForThoseWithTheNumberZeroWhereNoNumberIsTold)
{
    const Opened opened = open("<plotka format=\"2\" name=\"p\" nextId=\"9\" rate=\"24\" startTimecode=\"0\">\n"
                               "<newRecords number=\"0\"><metadata type=\"int\"/></newRecords>\n"
                               "<scene object=\"1\" scene=\"2\">\n"
                               "<newRecords/>\n"
                               "<newRecords as=\"x\"/>\n"
                               "<newRecords as=\"0\"/>\n"
                               "</scene></plotka>\n");
    ASSERT_TRUE(opened.project);
    EXPECT_EQ(opened.report,
        "p.plotka:4:14: warning: records of scene 1: left out: what they are does not stand before the scene\n"
        "p.plotka:5:21: warning: records of scene 1: left out: what they are does not stand before the scene\n");
    EXPECT_EQ(sceneOf(*opened.project, 0).metadatas()->view().size(), 1U);
}

TEST(NewRecords, AreSmall)
{
    const auto with = [](int size) {
        const QByteArray record = "<metadata type=\"weather\">" + QByteArray(size, 'x') + "</metadata>";
        return open(
            "<plotka format=\"2\" name=\"p\" nextId=\"9\" rate=\"24\" startTimecode=\"0\">\n<newRecords number=\"1\">"
            + record + "</newRecords>\n<scene object=\"1\" scene=\"2\"><newRecords as=\"1\"/></scene></plotka>");
    };
    EXPECT_EQ(with(4000).report, "");
    const Opened trap = with(4096);
    EXPECT_FALSE(trap.project);
    EXPECT_NE(trap.report.find("p.plotka:2:"), std::string::npos) << trap.report;
    EXPECT_NE(trap.report.find("a record of new records is longer than 4096 bytes"), std::string::npos) << trap.report;
}

TEST(NewRecords, CountInEachSceneForTheBoundOfSize)
{
    const QByteArray record = "<metadata type=\"weather\">" + QByteArray(4000, 'x') + "</metadata>";
    const auto with = [&record](int scenes) {
        QByteArray file =
            "<plotka format=\"2\" name=\"p\" nextId=\"9\" rate=\"24\" startTimecode=\"0\">\n<newRecords number=\"1\">"
            + record.repeated(50) + "</newRecords>\n";
        for (int i = 1; i <= scenes; ++i) {
            file += "<scene object=\"" + QByteArray::number(2 * i) + "\" scene=\"" + QByteArray::number(2 * i + 1)
                + "\"><newRecords as=\"1\"/></scene>";
        }
        return file + "</plotka>";
    };
    EXPECT_EQ(open(with(5000)).report, "");
    const Opened trap = open(with(6000));
    EXPECT_FALSE(trap.project);
    EXPECT_NE(trap.report.find("the records of all scenes are larger than 1073741824 bytes"), std::string::npos);
}

TEST(NewRecords, OfOneSceneMayBeMany)
{
    Board board;
    TUScene *const scene = board.project().addScene();
    for (int i = 0; i < 100; ++i)
        scene->metadatas()->add(newInt());
    const Opened back = open(board.file());
    EXPECT_EQ(back.report, "");
    EXPECT_EQ(textOf(*back.project), textOf(board.project()));
    EXPECT_EQ(SC_ProjectFile::toText(*back.project, kName), board.file());
}

TEST(PlainThings, AreNotWritten)
{
    Board board;
    TUSeqTimedValue *const sequence = sceneOf(board.project(), 0).addSeqTimedValue(text("S"));
    ASSERT_TRUE(sequence->insertBlock(1, 10, new AT_TimeWarpSeq(board.project().addScene(), 1, 10)));
    ASSERT_TRUE(sequence->insertBlock(11, 10, new AT_TimeWarpSeq(board.project().addScene(), 1, 11)));
    ASSERT_TRUE(sequence->insertBlock(21, 10, new AT_TimeWarpSeq(board.project().addScene(), 0.5, 10)));
    sceneOf(board.project(), 2).getRootGroup()->setLocked(true);
    sceneOf(board.project(), 3).getRootGroup()->setInstanceName(text("Else"));
    EXPECT_EQ(scenesOf(board.file()),
        "<scene object=\"1\" scene=\"2\"><sequence name=\"S\">"
        "<warp from=\"1\" frames=\"10\" object=\"3\" scene=\"4\"/>"
        "<warp from=\"11\" frames=\"10\" object=\"5\" scene=\"6\" end=\"11\"/>"
        "<warp from=\"21\" frames=\"10\" object=\"7\" scene=\"8\" start=\"0.5\"/>"
        "</sequence></scene><scene object=\"3\" scene=\"4\"/>"
        "<scene object=\"5\" scene=\"6\"><node class=\"group\" number=\"1\" name=\"Top\" locked=\"true\"/></scene>"
        "<scene object=\"7\" scene=\"8\"><node class=\"group\" number=\"1\" name=\"Else\"/></scene></plotka>");
    EXPECT_EQ(textOf(*open(board.file()).project), textOf(board.project()));
}

TEST(PlainThings, AreFoundByLinksAllTheSame)
{
    Board board;
    TUScene *const plain = board.project().addScene();
    auto *const node = new MO_Module(sceneOf(board.project(), 0).sceneCommon(), text("BLUR"), text("blur"));
    ASSERT_TRUE(sceneOf(board.project(), 0).getRootGroup()->addNode(UT_SharedPtr<MO_Node>(node)));
    ASSERT_TRUE(node->inPort(0)->connect(plain->getRootGroup()->outPort()));
    const QByteArray file = board.file();
    EXPECT_FALSE(file.contains("name=\"Top\"/>"));
    const Opened back = open(file);
    EXPECT_EQ(back.report, "");
    EXPECT_EQ(textOf(*back.project), textOf(board.project()));
}
