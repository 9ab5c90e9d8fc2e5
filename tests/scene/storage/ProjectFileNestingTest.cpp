#include "scene/base/UT_SharedPtr.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/network/MO_ElementModule.h"
#include "scene/network/MO_ModuleVisitor.h"
#include "scene/network/TUGroup.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"
#include "scene/storage/XmlBounds_p.h"
#include "support/ProjectText.h"
#include "support/SampleProject.h"

#include <QXmlStreamReader>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>

namespace
{

constexpr int deepest = 20000; // of elements that stand open at once
constexpr int aroundScene = 2; // "plotka" and "scene"

struct Reading {
    UT_SharedPtr<SC_Project> project;
    SC_FileReport report;

    bool nestsTooDeep() const
    {
        return !project && textOf(report).find("error: elements nest deeper than 20000\n") != std::string::npos;
    }
};

Reading read(const QByteArray &text)
{
    Reading reading;
    reading.project = SC_ProjectFile::fromText(text, QStringLiteral("/nowhere/p.plotka"), reading.report);
    return reading;
}

QByteArray inScene(const QByteArray &content)
{
    return documentOf("<scene object='1' scene='2'>" + content + "</scene>");
}

QByteArray nested(const QByteArray &begin, const QByteArray &end, int levels, const QByteArray &content = QByteArray())
{
    return begin.repeated(levels) + content + end.repeated(levels);
}

QByteArray groups(int levels)
{
    return nested("<node class='group' name='g'>", "</node>", levels);
}

QByteArray record(int levels)
{
    return "<metadata type='later'>" + nested("<x>", "</x>", levels) + "</metadata>";
}

/// How deep elements stand in one another as the XML stream tells them, up to where it ends.
int depthOf(QXmlStreamReader &xml)
{
    int depth = 0;
    int largest = 0;
    while (!xml.atEnd()) {
        xml.readNext();
        depth += xml.isStartElement() ? 1 : xml.isEndElement() ? -1 : 0;
        largest = std::max(largest, depth);
    }
    return largest;
}

void expectSavedTheSame(const SC_Project &project)
{
    const QByteArray saved = SC_ProjectFile::toText(project, QStringLiteral("p"));
    const Reading again = read(saved);
    ASSERT_TRUE(again.project) << textOf(again.report);
    EXPECT_TRUE(SC_ProjectFile::toText(*again.project, QStringLiteral("p")) == saved);
}

/// Markup of all kinds, much of which looks like tags to who does not look closely.
QByteArray randomMarkup(std::mt19937 &random)
{
    static const char *const pieces[] = {"<a>", "<a>", "<a>", "</a>", "</a>", "</a >", "<a/>", "<a b='1'/>",
        "<a b='</a>'>", "<a b=\"'/>\">", "<a b='1'\n c='/'>", "<!---->", "<!--></a>-->", "<!---></a>-->",
        "<!--</a></a>-->", "<!-- <a> -->", "<![CDATA[]]>", "<![CDATA[</a>]]]]>", "<![CDATA[<a>]]>", "<?p?>",
        "<?p </a>?>", "<?p <a>>?>", "&lt;a&gt;", "text", "]]", "\n", ">", "=", "'"};
    QByteArray markup;
    for (int i = std::uniform_int_distribution<int>(1, 40)(random); i > 0; --i)
        markup += pieces[std::uniform_int_distribution<std::size_t>(0, std::size(pieces) - 1)(random)];
    return markup;
}

class CountingVisitor : public MO_ModuleVisitor
{
public:
    using MO_ModuleVisitor::visit;
    void visit(MO_Module &) override { ++count; }
    int count = 0;
};

} // namespace

TEST(Nesting, OfGroupsIsReadAndSavedAsDeepAsElementsMayNest)
{
    const Reading reading = read(inScene(groups(deepest - aroundScene)));
    ASSERT_TRUE(reading.project) << textOf(reading.report);
    expectSavedTheSame(*reading.project);
    EXPECT_TRUE(read(inScene(groups(deepest - aroundScene + 1))).nestsTooDeep());
}

TEST(Nesting, OfGroupsIsVisitedWhateverItsDepth)
{
    const QByteArray element = "<node class='element' name='e'/>";
    const Reading reading =
        read(inScene(nested("<node class='group' name='g'>", "</node>", deepest - aroundScene - 1, element) + element));
    ASSERT_TRUE(reading.project);
    CountingVisitor visitor;
    dynamic_cast<TUScene &>(*reading.project->sceneAt(0)).getRootGroup()->accept(visitor);
    EXPECT_EQ(visitor.count, 1);
}

TEST(Nesting, OfUnknownElementsIsLeftOutAsDeepAsElementsMayNest)
{
    const QByteArray innermost = "<later object='4711'/>";
    const Reading reading = read(inScene(nested("<later>", "</later>", deepest - aroundScene - 1, innermost)));
    ASSERT_TRUE(reading.project) << textOf(reading.report);
    EXPECT_EQ(reading.project->projectCommon()->nextId(), 4712) << "an id that is left out stays taken";
    EXPECT_TRUE(read(inScene(nested("<later>", "</later>", deepest - aroundScene, innermost))).nestsTooDeep());
}

TEST(Nesting, OfUnknownRecordsIsKeptAsDeepAsElementsMayNest)
{
    const Reading reading = read(inScene(record(deepest - aroundScene - 1)));
    ASSERT_TRUE(reading.project) << textOf(reading.report);
    EXPECT_TRUE(reading.report.isEmpty());
    EXPECT_TRUE(
        SC_ProjectFile::toText(*reading.project, QStringLiteral("p")).contains(QByteArray("<x>").repeated(19996)));
    expectSavedTheSame(*reading.project);
    EXPECT_TRUE(read(inScene(record(deepest - aroundScene))).nestsTooDeep());
}

TEST(Nesting, WithoutEndIsAnError)
{
    EXPECT_EQ(textOf(read(documentOf(QByteArray("<x>").repeated(2000000))).report),
        "p.plotka:1:60067: error: elements nest deeper than 20000\n");
    EXPECT_TRUE(read(inScene(groups(60000))).nestsTooDeep());
    EXPECT_TRUE(read(inScene(record(60000))).nestsTooDeep());
}

// A comment that seems to end where it begins hid ends of elements: the count fell below zero and the bound was gone.
TEST(Nesting, IsNotHiddenByMarkupThatLooksLikeEnds)
{
    const QByteArray ends = QByteArray("</a>").repeated(70000);
    for (const QByteArray &hiding : {"<!-->" + ends + "-->", "<!--->" + ends + "-->", "<!--" + ends + "-->",
             "<![CDATA[" + ends + "]]>", "<![CDATA[>" + ends + "]]>", "<?p " + ends + "?>", "<?p >" + ends + "?>"}) {
        EXPECT_TRUE(read(inScene(hiding + groups(60000))).nestsTooDeep()) << hiding.left(12).toStdString();
        EXPECT_TRUE(read(inScene(hiding + nested("<later>", "</later>", 60000))).nestsTooDeep());
        EXPECT_TRUE(read(inScene(hiding)).project) << hiding.left(12).toStdString();
    }
    EXPECT_TRUE(read(inScene("<later b='</later></later>'>" + groups(60000) + "</later>")).nestsTooDeep());
}

TEST(Nesting, IsAnErrorWhereMoreElementsEndThanBegan)
{
    for (const QByteArray &content : {QByteArray("</scene></plotka></x>"),
             QByteArray("</scene></plotka><!--></x></x>-->"), QByteArray("</x>").repeated(60000)}) {
        const Reading reading = read(inScene(content + groups(60000)));
        EXPECT_FALSE(reading.project);
        EXPECT_TRUE(reading.report.hasErrors());
    }
}

// In such encodings bytes that look like tags are letters, and letters that look like nothing are tags.
TEST(Nesting, IsNotHiddenByAnEncoding)
{
    const auto inEncoding = [](const QByteArray &encoding) {
        return textOf(read("<?xml version='1.0' encoding='" + encoding + "'?>" + inScene(QByteArray())).report);
    };
    for (const char *known : {"UTF-8", "utf-8", "US-ASCII", "ISO-8859-1"})
        EXPECT_EQ(inEncoding(known), "") << known;
    EXPECT_NE(
        inEncoding("UTF-7").find("error: the text is in the encoding UTF-7 and not in UTF-8\n"), std::string::npos);
    for (const char *other : {"UTF-7", "UTF-16", "Shift_JIS", "ISO-2022-JP", "IBM037", "nonsense"})
        EXPECT_NE(inEncoding(other).find("error: "), std::string::npos) << other;

    QByteArray hidden = "<?xml version='1.0' encoding='UTF-7'?>"
        + inScene(nested("+ADw-node class='group'+AD4-", "+ADw-/node+AD4-", 60000));
    EXPECT_FALSE(read(hidden).project);
}

// An element that closes itself stands in the others as any does.
TEST(Nesting, IsBoundForSavingAsForReading)
{
    const QByteArray text = nested("<a>", "</a>", 6, "<b/>");
    EXPECT_NE(XmlBounds::find(text, 6).message, QString());
    EXPECT_EQ(XmlBounds::find(text, 7).message, QString());
}

TEST(Nesting, IsCountedAsTheXmlStreamCountsIt)
{
    std::mt19937 random(7);
    int whole = 0;
    for (int i = 0; i < 20000; ++i) {
        const QByteArray text = "<r>" + randomMarkup(random) + "</r>";
        QXmlStreamReader xml(text);
        const int depth = depthOf(xml);
        ASSERT_NE(XmlBounds::find(text, depth - 1).message, QString()) << text.toStdString();
        if (xml.hasError())
            continue;
        ASSERT_EQ(XmlBounds::find(text, depth).message, QString()) << text.toStdString();
        ++whole;
    }
    EXPECT_GT(whole, 1000);
}
