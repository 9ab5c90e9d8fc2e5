#include "metadata/PKC_DeletedPanels.h"

#include "support/Golden.h"
#include "support/Payloads.h"
#include "support/Records.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace
{

QDateTime dayOf(int day)
{
    return QDateTime(QDate(2030, 1, day), QTime(12, 0, 1), Qt::UTC);
}

PKC_DeletedPanels threePanels()
{
    PKC_DeletedPanels panels(QStringLiteral("inside"), QStringLiteral("elsewhere"), QStringLiteral("0.7"));
    panels.add(SC_Id(300), dayOf(1));
    panels.add(SC_Id(20), dayOf(2));
    panels.add(SC_Id(-4), QDateTime());
    return panels;
}

/// The ids and dates of the record, as the file has them.
std::string entriesOf(const PKC_DeletedPanels &panels)
{
    const QString markup = QString::fromStdString(markupOf(panels));
    QString entries;
    for (const QString &line : markup.split(QLatin1Char('\n'))) {
        if (line.contains(QLatin1String("<scene ")))
            entries += line.section(QLatin1Char('"'), 1, 1) + QLatin1Char('@') + line.section(QLatin1Char('"'), 3, 3)
                + QLatin1Char(' ');
    }
    return entries.trimmed().toStdString();
}

const std::string threeEntries = "-4@ 20@2030-01-02T12:00:01Z 300@2030-01-01T12:00:01Z";

} // namespace

TEST(DeletedPanels, StartsEmptyAndIsAlwaysValid)
{
    PKC_DeletedPanels panels;
    EXPECT_EQ(textsOf(panels), "deletedPanels '' 'plotka-tests' '1.0'");
    EXPECT_EQ(PKC_DeletedPanels::kPIO_PKMETA_Keyword, QStringLiteral("deletedPanels"));
    EXPECT_EQ(PKC_DeletedPanels::kPIO_PKMETA_Version, QStringLiteral("1.0"));
    EXPECT_EQ(entriesOf(panels), "");
    EXPECT_TRUE(panels.isValid());
    EXPECT_TRUE(threePanels().isValid());
    EXPECT_FALSE(panels.contains(SC_Id()));
}

TEST(DeletedPanels, KeepsOneTimePerPanelInOrderOfIds)
{
    PKC_DeletedPanels panels = threePanels();
    EXPECT_EQ(entriesOf(panels), threeEntries);
    EXPECT_TRUE(panels.contains(SC_Id(20)));
    EXPECT_FALSE(panels.contains(SC_Id(21)));
    panels.add(SC_Id(20), dayOf(9));
    EXPECT_EQ(entriesOf(panels), "-4@ 20@2030-01-09T12:00:01Z 300@2030-01-01T12:00:01Z");
}

TEST(DeletedPanels, RemovesOneOrAll)
{
    PKC_DeletedPanels panels = threePanels();
    panels.remove(SC_Id(21));
    EXPECT_EQ(entriesOf(panels), threeEntries);
    panels.remove(SC_Id(20));
    panels.remove(SC_Id(20));
    EXPECT_EQ(entriesOf(panels), "-4@ 300@2030-01-01T12:00:01Z");
    panels.clear();
    EXPECT_EQ(entriesOf(panels), "");
    EXPECT_FALSE(panels.contains(SC_Id(300)));
}

TEST(DeletedPanels, CopiesEveryField)
{
    const PKC_DeletedPanels panels = threePanels();
    PKC_DeletedPanels assigned;
    assigned.add(SC_Id(1), dayOf(3));
    assigned = panels;
    const PKC_DeletedPanels &self = assigned;
    assigned = self;
    const auto clone = cloneOf(panels);
    ASSERT_TRUE(clone);
    for (const PKC_DeletedPanels &copy : {PKC_DeletedPanels(panels), assigned, *clone}) {
        EXPECT_EQ(textsOf(copy), "deletedPanels 'inside' 'elsewhere' '0.7'");
        EXPECT_EQ(entriesOf(copy), threeEntries);
    }
}

TEST(DeletedPanels, ClonesIndependently)
{
    PKC_DeletedPanels panels = threePanels();
    const auto clone = cloneOf(panels);
    panels.clear();
    EXPECT_EQ(entriesOf(*clone), threeEntries);
}

TEST(DeletedPanels, WritesItsElementAlsoWhenEmpty)
{
    expectGolden("deleted_panels.xml", markupOf(PKC_DeletedPanels()) + markupOf(threePanels()));
}

TEST(DeletedPanels, ReadsBackWhatItWrote)
{
    PKC_DeletedPanels panels = threePanels();
    panels.remove(SC_Id(-4)); // without a date it would come back with today's
    const auto again = as<PKC_DeletedPanels>(readBack(panels));
    ASSERT_TRUE(again);
    EXPECT_EQ(markupOf(*again), markupOf(panels));
}

TEST(DeletedPanels, DumpsNothing)
{
    EXPECT_EQ(dumpOf(threePanels()), "");
}

TEST(DeletedPanels, ReadsAPanelWithoutADateAsDeletedNow)
{
    for (const QString &payload :
        {QStringLiteral("<deletedPanels><scene id='5'/></deletedPanels>"), QStringLiteral("<scene id='5' date=''/>")}) {
        PKC_DeletedPanels panels;
        const QDateTime before = QDateTime::currentDateTime();
        readPayload(panels, payload);
        const QString text = QString::fromStdString(entriesOf(panels));
        EXPECT_TRUE(panels.contains(SC_Id(5)));
        const QDateTime date = QDateTime::fromString(text.section(QLatin1Char('@'), 1), Qt::ISODate);
        EXPECT_GE(date, before.addSecs(-1)) << text.toStdString();
        EXPECT_LE(date, QDateTime::currentDateTime()) << text.toStdString();
    }
}

TEST(DeletedPanels, ReadsABadDateAsNone)
{
    PKC_DeletedPanels panels;
    readPayload(panels, QStringLiteral("<scene id='5' date='noon'/><scene id='6' date='2030-02-30T00:00:00'/>"));
    EXPECT_EQ(entriesOf(panels), "5@ 6@");

    const QDateTime before = QDateTime::currentDateTime();
    const auto again = as<PKC_DeletedPanels>(readBack(panels)); // where it is written as an empty one
    ASSERT_TRUE(again);
    const QString text = QString::fromStdString(entriesOf(*again));
    EXPECT_TRUE(text.startsWith(QLatin1String("5@"))) << text.toStdString();
    for (const QString &entry : text.split(QLatin1Char(' '))) {
        const QDateTime date = QDateTime::fromString(entry.section(QLatin1Char('@'), 1), Qt::ISODate);
        EXPECT_GE(date, before.addSecs(-1)) << text.toStdString();
        EXPECT_LE(date, QDateTime::currentDateTime()) << text.toStdString();
    }
}

TEST(DeletedPanels, ReadsABadIdAsTheNullId)
{
    for (const char *bad : {"", "id=''", "id='x'", "id='5,6'", "id='99999999999999999999'"}) {
        PKC_DeletedPanels panels;
        readPayload(panels,
            QStringLiteral("<scene %1 date='2030-01-02T12:00:01Z'/><scene id='7' date='2030-01-02T12:00:01Z'/>")
                .arg(QLatin1String(bad)));
        EXPECT_EQ(entriesOf(panels), "0@2030-01-02T12:00:01Z 7@2030-01-02T12:00:01Z") << bad;
    }
}

TEST(DeletedPanels, AddsToWhatItHoldsAndTheLastOfADoubledIdCounts)
{
    PKC_DeletedPanels panels = threePanels();
    readPayload(panels,
        QStringLiteral("<deletedPanels><scene id='20' date='2030-01-08T12:00:01Z'/>"
                       "<scene id='20' date='2030-01-07T12:00:01Z'/></deletedPanels>"));
    EXPECT_EQ(entriesOf(panels), "-4@ 20@2030-01-07T12:00:01Z 300@2030-01-01T12:00:01Z");
}

TEST(DeletedPanels, ReadsOnWhateverCloses)
{
    PKC_DeletedPanels panels;
    readPayload(panels,
        QStringLiteral("<other id='1'/><deletedPanels id='2'><x><scene id='3' date='2030-01-02T12:00:01Z'/></x>"
                       "<Scene id='4'/></deletedPanels><scene id='5' date='2030-01-02T12:00:01Z'/>"));
    EXPECT_EQ(entriesOf(panels), "3@2030-01-02T12:00:01Z 5@2030-01-02T12:00:01Z");
}

TEST(DeletedPanels, KeepsAForeignCreatorAndAnOlderVersion)
{
    const auto panels = loaded<PKC_DeletedPanels>(
        QStringLiteral("<deletedPanels><scene id='3' date='2030-01-02T12:00:01Z'/></deletedPanels>"));
    ASSERT_TRUE(panels);
    EXPECT_EQ(textsOf(*panels), "deletedPanels 'inside' 'elsewhere' '0.7'");
    EXPECT_EQ(textsOf(*cloneOf(*panels)), textsOf(*panels));
    EXPECT_EQ(entriesOf(*panels), "3@2030-01-02T12:00:01Z");
}
