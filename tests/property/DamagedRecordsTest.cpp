#include "support/Records.h"

#include "metadata/PKC_MetadataFactory.h"
#include "scene/metadata/PIO_Metadatas.h"
#include "scene/project/SC_Project.h"
#include "scene/project/TUScene.h"
#include "scene/storage/SC_FileReport.h"
#include "scene/storage/SC_ProjectFile.h"

#include <QFile>
#include <QRegularExpression>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace
{

QString exampleText()
{
    QFile file(QStringLiteral(PLOTKA_EXAMPLES "/every_record/every_record.plotka"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return QString::fromUtf8(file.readAll());
}

/// An attribute in the payload of a record: where ` key="value"` stands, and in the how many-th record of the file.
struct Attribute {
    qsizetype at;
    qsizetype length;
    QString key;
    std::size_t record;
};

std::vector<Attribute> payloadAttributes(const QString &text)
{
    static const QRegularExpression records(
        QStringLiteral("<metadata [^>]*>(.*?)</metadata>"), QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression attributes(QStringLiteral(" ([A-Za-z]+)=\"[^\"]*\""));
    std::vector<Attribute> found;
    std::size_t record = 0;
    for (auto all = records.globalMatch(text); all.hasNext(); ++record) {
        const QRegularExpressionMatch payload = all.next();
        for (auto each = attributes.globalMatch(payload.captured(1)); each.hasNext();) {
            const QRegularExpressionMatch one = each.next();
            found.push_back(
                {payload.capturedStart(1) + one.capturedStart(), one.capturedLength(), one.captured(1), record});
        }
    }
    return found;
}

/// Each record of the text as it would be written again, in the order of the file.
std::vector<std::string> recordsIn(const QString &text, SC_FileReport &report)
{
    PKC_MetadataFactory::createInstance();
    const UT_SharedPtr<SC_Project> project(
        SC_ProjectFile::fromText(text.toUtf8(), QStringLiteral("/nowhere/every_record.plotka"), report));
    std::vector<std::string> markups;
    if (!project)
        return markups;
    const auto collect = [&markups](const PIO_Metadatas *records) {
        for (const PIO_Metadata *record : *records)
            markups.push_back(markupOf(*record));
    };
    collect(project->metadatas());
    for (unsigned int i = 0; i < project->sceneCount(); ++i)
        collect(static_cast<TUScene *>(project->sceneAt(i))->metadatas());
    return markups;
}

/// The content of a caption, and the id of what other programs call an issue.
bool isText(const QString &text, const Attribute &attribute)
{
    const QString element = text.mid(text.lastIndexOf(u'<', attribute.at) + 1, 10);
    return (attribute.key == QStringLiteral("value") && element.startsWith(QStringLiteral("field ")))
        || (attribute.key == QStringLiteral("id") && element.startsWith(QStringLiteral("Compatibil")));
}

} // namespace

TEST(DamagedRecords, HarmNoNeighbour)
{
    const QString text = exampleText();
    SC_FileReport good;
    const std::vector<std::string> whole = recordsIn(text, good);
    EXPECT_TRUE(good.isEmpty() && good.remarks().empty());
    const std::vector<Attribute> attributes = payloadAttributes(text);
    ASSERT_GT(attributes.size(), 80u);
    for (const Attribute &attribute : attributes) {
        for (const QString &damage : {QString(), QStringLiteral(" %1=\"\""), QStringLiteral(" %1=\"\u2603 ,;\"")}) {
            QString damaged = text;
            damaged.replace(attribute.at, attribute.length, damage.isEmpty() ? damage : damage.arg(attribute.key));
            SC_FileReport report;
            std::vector<std::string> records = recordsIn(damaged, report);
            const std::string what = attribute.key.toStdString() + " of record " + std::to_string(attribute.record);
            ASSERT_EQ(records.size(), whole.size()) << what;
            EXPECT_TRUE(report.isEmpty()) << what;
            records[attribute.record] = whole[attribute.record];
            EXPECT_EQ(records, whole) << what;
        }
    }
}

TEST(DamagedRecords, AreRemarkedOnWithTheirLine)
{
    const QString text = exampleText();
    // In these any text is good.
    const QStringList texts{QStringLiteral("name"), QStringLiteral("sequenceName"), QStringLiteral("actName"),
        QStringLiteral("path"), QStringLiteral("project"), QStringLiteral("product"), QStringLiteral("version"),
        QStringLiteral("trackingNote")};
    int remarked = 0;
    for (const Attribute &attribute : payloadAttributes(text)) {
        if (texts.contains(attribute.key) || isText(text, attribute))
            continue;
        QString damaged = text;
        damaged.replace(attribute.at, attribute.length, QStringLiteral(" %1=\"\u2603\"").arg(attribute.key));
        SC_FileReport report;
        recordsIn(damaged, report);
        ASSERT_FALSE(report.remarks().empty()) << attribute.key.toStdString();
        EXPECT_EQ(report.remarks().front().line, text.left(attribute.at).count(u'\n') + 1);
        EXPECT_TRUE(report.remarks().front().message.contains(attribute.key)) << attribute.key.toStdString();
        ++remarked;
    }
    EXPECT_GT(remarked, 50);
}
