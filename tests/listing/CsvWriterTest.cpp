#include "listing/CsvWriter.h"

#include <gtest/gtest.h>

namespace
{

std::string written(const QVariant &value, CsvWriter::Formulas formulas = CsvWriter::AsTheyAre)
{
    CsvWriter csv(formulas);
    csv.addRow({{QStringLiteral("v"), value}});
    return csv.text().toStdString();
}

} // namespace

TEST(CsvWriter, QuotesWhatWouldEndACell)
{
    EXPECT_EQ(written(QStringLiteral("plain")), "plain\n");
    EXPECT_EQ(written(QStringLiteral("a,b")), "\"a,b\"\n");
    EXPECT_EQ(written(QStringLiteral("a\"b")), "\"a\"\"b\"\n");
    EXPECT_EQ(written(QStringLiteral("a\nb\r")), "\"a\nb\r\"\n");
    EXPECT_EQ(written(QVariant()), "\n");
    EXPECT_EQ(written(-5), "-5\n");
    EXPECT_EQ(written(true), "true\n");
}

TEST(CsvWriter, WritesWhatActsOnATerminalAsAnEscape)
{
    EXPECT_EQ(written(QStringLiteral("\u001b[2J\u009b1A\u202e\tx")), "\\u001b[2J\\u009b1A\\u202e\tx\n");
}

TEST(CsvWriter, GuardsTextsThatASpreadsheetWouldRun)
{
    for (const char *text : {"=1", "+1", "-1", "@a", "\ta", "\uFF1D1", "\uFF0B1", "\uFF0D1", "\uFF20a"})
        EXPECT_EQ(written(QString::fromUtf8(text), CsvWriter::Guarded), std::string("'") + text + "\n");
    EXPECT_EQ(written(QStringLiteral("\ra"), CsvWriter::Guarded), "\"'\ra\"\n");
    EXPECT_EQ(written(QStringLiteral("\n=1"), CsvWriter::Guarded), "\"'\n=1\"\n");
    EXPECT_EQ(written(QStringLiteral("=1,2"), CsvWriter::Guarded), "\"'=1,2\"\n");
    EXPECT_EQ(written(QStringLiteral("a=1"), CsvWriter::Guarded), "a=1\n");
    EXPECT_EQ(written(QString(), CsvWriter::Guarded), "\n");
    EXPECT_EQ(written(-1, CsvWriter::Guarded), "-1\n") << "a number is what it is";
}
