#include "trailers/TrailerListFixture.h"

namespace kestro {

namespace {

constexpr const char* one = "http://h/1/a.mov";
constexpr const char* two = "http://h/2/a.mov";
constexpr const char* three = "http://h/3/a.mov";
constexpr const char* four = "http://h/4/a.mov";
const QString selKey = QStringLiteral("Sel");

} // namespace

/// Two processes that have read the same list: ours, and theirs.
class TrailerListMergeTest : public TrailerListFixture {
protected:
    TrailerListMergeTest()
    {
        m_ours.store({record(one, "480 x 204", "2008/01/01"), record(two, "480 x 204", "2008/01/01")});
        m_ours.addPassed("http://h/old/");
        EXPECT_TRUE(m_ours.saveList());
        m_theirs.load();
    }

    [[nodiscard]] TrailerListContents saved() const
    {
        return TrailerListFile(m_home.path(), seed()).read().value_or(TrailerListContents());
    }
    [[nodiscard]] TrailerRecord saved(const char* url) const
    {
        return saved().trailers.value(QLatin1String(url));
    }
    [[nodiscard]] QStringList savedURLs() const
    {
        QStringList urls = saved().trailers.keys();
        urls.sort();
        return urls;
    }
    static QStringList urls(const QList<const char*>& texts)
    {
        QStringList made;
        for (const char* text : texts)
            made.append(QLatin1String(text));
        return made;
    }
    static void tick(TrailerList& list, const char* url, bool isTicked = true)
    {
        list.setSel(QLatin1String(url), isTicked);
    }

    TrailerList m_ours{m_home.path(), seed()};
    TrailerList m_theirs{m_home.path(), seed()};
};

TEST_F(TrailerListMergeTest, saveList_keepsWhatBothHaveFound)
{
    m_theirs.store({record(three)});
    m_theirs.addPassed("http://h/3/");
    ASSERT_TRUE(m_theirs.saveList());
    m_ours.store({record(four)});
    m_ours.addPassed("http://h/4/");
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(savedURLs(), urls({one, two, three, four}));
    EXPECT_EQ(saved().sites, (QSet<QByteArray>{"http://h/old/", "http://h/3/", "http://h/4/"}));
    EXPECT_EQ(m_ours.count(), 4);
    EXPECT_FALSE(m_ours.isChanged());
}

TEST_F(TrailerListMergeTest, saveList_keepsWhatAnotherSaved_whenNothingWasChangedHere)
{
    m_theirs.store({record(three)});
    ASSERT_TRUE(m_theirs.saveList());
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(savedURLs(), urls({one, two, three}));
}

TEST_F(TrailerListMergeTest, saveList_keepsTheTickOfOneAndTheFindOfTheOther_whoeverIsFirst)
{
    const TrailerRecord found = record(one, "640 x 272", "2009/01/01");
    tick(m_ours, one);
    m_theirs.store({found});
    ASSERT_TRUE(m_theirs.saveList());
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(saved(one).other.value(selKey), QVariant(true));
    EXPECT_EQ(saved(one).size, found.size);

    const TrailerRecord foundNext = record(two, "640 x 272", "2009/01/01");
    m_theirs.store({foundNext});
    tick(m_ours, two);
    ASSERT_TRUE(m_ours.saveList());
    ASSERT_TRUE(m_theirs.saveList());
    EXPECT_EQ(saved(two).other.value(selKey), QVariant(true));
    EXPECT_EQ(saved(two).date, foundNext.date);
}

TEST_F(TrailerListMergeTest, saveList_keepsTheNewerFind_whenBothFoundIt)
{
    m_theirs.store({record(one, "640 x 272", "2009/01/02"), record(two, "640 x 272", "2009/01/01")});
    ASSERT_TRUE(m_theirs.saveList());
    m_ours.store({record(one, "320 x 136", "2009/01/01"), record(two, "320 x 136", "2009/01/02")});
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(saved(one).size, QStringLiteral("640 x 272"));
    EXPECT_EQ(saved(two).size, QStringLiteral("320 x 136"));
}

TEST_F(TrailerListMergeTest, saveList_takesATickAway_whenItWentHereAndTheRestWasChangedThere)
{
    tick(m_ours, one);
    ASSERT_TRUE(m_ours.saveList());
    const QString noteKey = QStringLiteral("Note");
    QVariantMap theirs = stored(QLatin1String(one), "480 x 204", "2008/01/01");
    theirs.insert(selKey, true);
    theirs.insert(noteKey, QStringLiteral("of another release"));
    writeFile(listOf({theirs}));
    m_ours.store({record(one, "480 x 204", "2008/01/02")});
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_FALSE(saved(one).other.contains(selKey));
    EXPECT_TRUE(saved(one).other.contains(noteKey));
    EXPECT_EQ(saved(one).date, QStringLiteral("2008/01/02"));
}

TEST_F(TrailerListMergeTest, saveList_forgetsWhatWasKnown_andKeepsWhatAnotherFound_whenItWasCleared)
{
    m_theirs.store({record(three)});
    m_theirs.addPassed("http://h/3/");
    tick(m_theirs, two);
    ASSERT_TRUE(m_theirs.saveList());
    m_ours.clear();
    m_ours.store({record(four)});
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(savedURLs(), urls({two, three, four})); // two was changed there
    EXPECT_EQ(saved().sites, QSet<QByteArray>{"http://h/3/"});
}

TEST_F(TrailerListMergeTest, saveList_keepsOwnChangesOnly_whenAnotherClearedTheList)
{
    m_theirs.clear();
    ASSERT_TRUE(m_theirs.saveList());
    tick(m_ours, one);
    m_ours.store({record(three)});
    m_ours.addPassed("http://h/3/");
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(savedURLs(), urls({one, three}));
    EXPECT_EQ(saved().sites, QSet<QByteArray>{"http://h/3/"});
}

TEST_F(TrailerListMergeTest, saveList_visitsNoPageAgain_whenItWasUnvisitedHere)
{
    m_ours.addPassed("http://h/cut/");
    m_ours.forgetPassed("http://h/cut/");
    m_theirs.store({record(three)});
    ASSERT_TRUE(m_theirs.saveList());
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(saved().sites, QSet<QByteArray>{"http://h/old/"});
}

TEST_F(TrailerListMergeTest, refresh_takesOnWhatAnotherSaved_withTheChangesOfHere)
{
    EXPECT_FALSE(m_ours.refresh());
    m_theirs.store({record(three)});
    ASSERT_TRUE(m_theirs.saveList());
    m_ours.store({record(four)});
    EXPECT_TRUE(m_ours.refresh());
    EXPECT_EQ(m_ours.scanedURLList()->size(), 4);
    EXPECT_TRUE(m_ours.isChanged());
    EXPECT_FALSE(m_ours.refresh());
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(savedURLs(), urls({one, two, three, four}));
}

TEST_F(TrailerListMergeTest, refresh_keepsWhatIsHere_whenTheFileIsGoneOrBroken)
{
    ASSERT_TRUE(QFile::remove(path()));
    EXPECT_FALSE(m_ours.refresh());
    writeBytes("broken");
    EXPECT_FALSE(m_ours.refresh());
    EXPECT_EQ(m_ours.count(), 2);
}

TEST_F(TrailerListMergeTest, saveList_setsAFileAside_thatNobodyCanRead)
{
    writeBytes("broken");
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(bytesOf(backup()), QByteArray("broken"));
    EXPECT_EQ(savedURLs(), urls({one, two}));
}

TEST_F(TrailerListMergeTest, saveList_stillKnowsItsChanges_whenTheOneBeforeFailed)
{
    const QString folder = QFileInfo(path()).path();
    const QString away = m_home.filePath(QStringLiteral("away"));
    m_ours.store({record(three)});
    m_ours.addPassed("http://h/3/");
    ASSERT_TRUE(QFile::rename(folder, away));
    QFile blocked(folder);
    ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
    EXPECT_FALSE(m_ours.saveList());
    ASSERT_TRUE(blocked.remove());
    ASSERT_TRUE(QFile::rename(away, folder));

    tick(m_ours, one);
    m_ours.addPassed("http://h/late/");
    m_theirs.store({record(four)});
    ASSERT_TRUE(m_theirs.saveList());
    ASSERT_TRUE(m_ours.saveList());
    EXPECT_EQ(savedURLs(), urls({one, two, three, four}));
    EXPECT_EQ(saved(one).other.value(selKey), QVariant(true));
    EXPECT_EQ(saved().sites, (QSet<QByteArray>{"http://h/old/", "http://h/3/", "http://h/late/"}));
}

// As where a crawl goes on while a save fails.
TEST_F(TrailerListMergeTest, changes_thatComeEarlier_giveWayToLaterOnes_butForWhatWasBefore)
{
    ListChanges earlier;
    earlier.noteSite("a", true);
    earlier.noteRecord(QLatin1String(three), {});
    ListChanges changes;
    changes.noteSite("a", false);
    changes.noteSite("b", true);
    changes.noteRecord(QLatin1String(three), record(three));
    changes.prepend(earlier);

    TrailerListContents theirs;
    theirs.keepSite("a");
    theirs.keep(QLatin1String(three), record(three, "640 x 272"));
    TrailerListContents ours;
    ours.keep(QLatin1String(three), record(three));
    const TrailerListContents both = changes.merged(ours, theirs);
    EXPECT_EQ(both.sites, QSet<QByteArray>{"b"});
    EXPECT_EQ(both.trailers.value(QLatin1String(three)).size, record(three).size);
}

} // namespace kestro
