#include "platform/saver/SlideFolder.h"

#include "platform/plist/PropertyList.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class SlideFolder : public testing::Test {
protected:
    void put(const char* name, const QVariant& folder)
    {
        ASSERT_TRUE(writePropertyList(byHost() + QString::fromLatin1(name),
                                      QVariantMap{{QStringLiteral("SlideFolder"), folder}}));
    }
    [[nodiscard]] QString byHost() const
    {
        return m_home.filePath(QStringLiteral("Library/Preferences/ByHost/"));
    }
    [[nodiscard]] QString pictures() const { return m_home.filePath(QStringLiteral("Pictures")); }

    QTemporaryDir m_home;
};

} // namespace

TEST_F(SlideFolder, folder_isTheOneThatThePreferencesName)
{
    put("com.apple.screensaver.slideshow.0A1B.plist", QStringLiteral("/some/where"));
    EXPECT_EQ(slideFolder(m_home.path()), QStringLiteral("/some/where"));
    EXPECT_EQ(slideShowPreferences(m_home.path()),
              byHost() + QStringLiteral("com.apple.screensaver.slideshow.0A1B.plist"));
}

TEST_F(SlideFolder, preferences_areNoFileOfAnotherName)
{
    for (const char* other :
         {"com.apple.screensaver.0A1B.plist", "com.apple.screensaver.slideshow",
          "com.apple.screensaver.slideshows.0A1B.plist", "com.apple.screen.slideshow.a.plist",
          "org.apple.screensaver.slideshow.0A1B.plist"})
        put(other, QStringLiteral("/other"));
    EXPECT_FALSE(slideShowPreferences(m_home.path()).has_value());
    EXPECT_EQ(slideFolder(m_home.path()), pictures());
    put("com.apple.screensaver.slideshow.plist", QStringLiteral("/five/parts"));
    EXPECT_EQ(slideFolder(m_home.path()), QStringLiteral("/five/parts"));
}

TEST_F(SlideFolder, folder_isThePicturesOfTheUser_whereNoneIsNamed)
{
    EXPECT_EQ(slideFolder(m_home.path()), pictures());
    for (const QVariant& useless : {QVariant(5), QVariant(QString()), QVariant(QVariantList())}) {
        put("com.apple.screensaver.slideshow.0A1B.plist", useless);
        EXPECT_EQ(slideFolder(m_home.path()), pictures());
    }
}

TEST_F(SlideFolder, folder_isBelowTheHome_whereItBeginsWithATilde)
{
    put("com.apple.screensaver.slideshow.0A1B.plist", QStringLiteral("~/Pictures/Cats"));
    EXPECT_EQ(slideFolder(m_home.path()), pictures() + QStringLiteral("/Cats"));
}

TEST_F(SlideFolder, screenSaverPreferences_areMade_whereThereAreNone)
{
    put("com.apple.dock.0A1B.plist", QStringLiteral("/other"));
    EXPECT_TRUE(makeScreenSaverPreferences(m_home.path()));
    const QStringList made = QDir(byHost()).entryList({QStringLiteral("com.apple.screensaver.*.plist")});
    ASSERT_EQ(made.size(), 1);
    EXPECT_EQ(made.front().count(u'.'), 4);
    EXPECT_EQ(readPropertyListDictionary(byHost() + made.front()), QVariantMap());
    EXPECT_FALSE(slideShowPreferences(m_home.path()).has_value());
}

TEST_F(SlideFolder, screenSaverPreferences_areLeftAlone_whereThereAreSome)
{
    for (const char* name :
         {"com.apple.screensaver.0A1B.plist", "com.apple.screensaver.slideshow.0A1B.plist"}) {
        put(name, QStringLiteral("/some/where"));
        EXPECT_TRUE(makeScreenSaverPreferences(m_home.path()));
        EXPECT_EQ(QDir(byHost()).entryList(QDir::Files), QStringList{QString::fromLatin1(name)});
        ASSERT_TRUE(QFile::remove(byHost() + QString::fromLatin1(name)));
    }
}

} // namespace kestro
