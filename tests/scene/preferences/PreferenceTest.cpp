#include "scene/preferences/PR_Preference.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <limits>

namespace
{

const bool existedBeforeMain = tuPref != nullptr && !tuPref->getBool(QStringLiteral("BEFORE_MAIN"));

/// Uses the settings after main() has ended; a crash there fails the test program.
struct UserInItsDestructor {
    ~UserInItsDestructor() { tuPref->setIntValue(QStringLiteral("AFTER_MAIN"), 1); }
} userInItsDestructor;

QString key(const char *name)
{
    return QString::fromLatin1(name);
}

void writeFile(const QString &path, const QByteArray &content)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_EQ(file.write(content), content.size());
}

} // namespace

TEST(Preference, OfTheProgramExistBeforeMain)
{
    EXPECT_TRUE(existedBeforeMain);
}

TEST(Preference, AnswerTheDefaultForWhatIsAbsentOrOfAnotherKind)
{
    PR_Preference preferences;
    EXPECT_FALSE(preferences.getBool(key("B")));
    EXPECT_TRUE(preferences.getBoolValue(key("B"), true));
    EXPECT_EQ(preferences.getIntValue(key("I"), 5), 5);
    EXPECT_EQ(preferences.getStringValue(key("S"), key("d")), key("d"));

    preferences.setIntValue(key("I"), 1);
    EXPECT_FALSE(preferences.getBool(key("I")));
    EXPECT_EQ(preferences.getStringValue(key("I"), key("d")), key("d"));
    preferences.setStringValue(key("S"), key("7"));
    EXPECT_EQ(preferences.getIntValue(key("S"), 5), 5);
}

TEST(Preference, TellAtOnceOfEachSetting)
{
    PR_Preference preferences;
    QSignalSpy news(&preferences, SIGNAL(preferenceChanged()));
    preferences.setBoolValue(key("B"), false);
    EXPECT_EQ(news.count(), 1);
    preferences.setBoolValue(key("B"), false); // also of one that changes nothing
    EXPECT_EQ(news.count(), 2);
    preferences.setBoolValue(key("B"), true);
    EXPECT_TRUE(preferences.getBool(key("B")));
    EXPECT_EQ(news.count(), 3);
    preferences.setIntValue(key("B"), 1); // another kind is another value
    EXPECT_EQ(news.count(), 4);
    preferences.setStringValue(key("S"), QString());
    EXPECT_EQ(news.count(), 5);
    preferences.clear();
    EXPECT_EQ(news.count(), 6);
    EXPECT_EQ(preferences.getIntValue(key("B"), 9), 9);
    preferences.clear();
    EXPECT_EQ(news.count(), 7);
}

TEST(Preference, MayBeSetWhileAListenerDies)
{
    struct Listener : QObject {
        explicit Listener(PR_Preference *settings) : preferences(settings)
        {
            connect(settings, &PR_Preference::preferenceChanged, this, [this] { ++heard; });
        }
        ~Listener() override
        {
            preferences->setStringValue(key("LAST"), key("words"));
            lastHeard = heard;
        }
        PR_Preference *preferences;
        int heard = 0;
        int &lastHeard = lastHeardByAny();
        static int &lastHeardByAny()
        {
            static int count = 0;
            return count;
        }
    };
    PR_Preference preferences;
    {
        const Listener listener(&preferences);
    }
    EXPECT_EQ(Listener::lastHeardByAny(), 1);
    EXPECT_EQ(preferences.getStringValue(key("LAST"), QString()), key("words"));
}

TEST(Preference, ComeBackFromAFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(key("preferences"));
    PR_Preference saved;
    saved.setBoolValue(key("B"), true);
    saved.setIntValue(key("I"), std::numeric_limits<int>::min());
    saved.setStringValue(key("S"), QString::fromUtf8("ż\n\"7\""));
    ASSERT_TRUE(saved.save(path));

    PR_Preference loaded;
    loaded.setBoolValue(key("OLD"), true);
    QSignalSpy news(&loaded, SIGNAL(preferenceChanged()));
    ASSERT_TRUE(loaded.load(path));
    EXPECT_EQ(news.count(), 1);
    EXPECT_TRUE(loaded.getBool(key("B")));
    EXPECT_EQ(loaded.getIntValue(key("I"), 0), std::numeric_limits<int>::min());
    EXPECT_EQ(loaded.getStringValue(key("S"), QString()), QString::fromUtf8("ż\n\"7\""));
    EXPECT_FALSE(loaded.getBool(key("OLD")));
    ASSERT_TRUE(loaded.load(path));
    EXPECT_EQ(news.count(), 2);
}

TEST(Preference, LeaveOutWhatIsNoSetting)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(key("preferences"));
    writeFile(path, R"({"a":null,"b":[1],"c":{},"d":1.5,"e":1e99,"f":3,"g":-1e99})");
    PR_Preference preferences;
    ASSERT_TRUE(preferences.load(path));
    for (const char *name : {"a", "b", "c", "d", "e", "g"})
        EXPECT_EQ(preferences.getIntValue(key(name), 9), 9) << name;
    EXPECT_EQ(preferences.getIntValue(key("f"), 9), 3);
}

TEST(Preference, AreUnchangedByAFileThatCannotBeRead)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(key("preferences"));
    PR_Preference preferences;
    preferences.setIntValue(key("I"), 1);
    EXPECT_FALSE(preferences.load(path));
    for (const char *content : {"", "x", "[1]", "{\"I\":"}) {
        writeFile(path, content);
        EXPECT_FALSE(preferences.load(path)) << content;
    }
    EXPECT_EQ(preferences.getIntValue(key("I"), 0), 1);
    EXPECT_FALSE(preferences.save(folder.filePath(key("no/such/folder"))));
}
