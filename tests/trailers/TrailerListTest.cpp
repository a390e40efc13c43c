#include "platform/base/Clock.h"
#include "trailers/TrailerListFixture.h"

#include <csignal>
#include <sys/resource.h>
#include <thread>

namespace kestro {

class TrailerListTest : public TrailerListFixture {
protected:
    TrailerListTest() { m_list.load(); }

    static QString text(const char* url) { return QLatin1String(url); }
    QStringList latest(int count, int width, const QSet<QString>& excluded = {})
    {
        QStringList texts;
        for (const QUrl& url : m_list.lastTrailers(count, width, excluded))
            texts.append(url.toString());
        return texts;
    }

    TrailerList m_list{m_home.path(), seed()};
};

TEST_F(TrailerListTest, saveList_writesVersionRecordsAndPages_whenThereAreSome)
{
    TrailerRecord first = record("http://h/a/a.mov");
    first.ac = true;
    first.other.insert(QStringLiteral("Sel"), 1);
    m_list.store({first});
    m_list.addPassed("http://h/a/");
    EXPECT_TRUE(m_list.isChanged());
    ASSERT_TRUE(m_list.saveList());
    EXPECT_FALSE(m_list.isChanged());

    QVariantMap expected = stored(text("http://h/a/a.mov"));
    expected.insert(QStringLiteral("AC"), QStringLiteral("Y"));
    expected.insert(QStringLiteral("Sel"), 1LL);
    EXPECT_EQ(readPropertyListDictionary(path()),
              (QVariantMap{{QStringLiteral("Ver"), QStringLiteral("010901")},
                           {QStringLiteral("Trailers"), QVariantList{expected}},
                           {QStringLiteral("Sites"), QVariantList{QStringLiteral("http://h/a/")}}}));
}

TEST_F(TrailerListTest, saveList_writesEmptyArrays_whenTheListIsEmpty)
{
    ASSERT_TRUE(m_list.saveList());
    EXPECT_EQ(readPropertyListDictionary(path())->value(QStringLiteral("Trailers")),
              QVariant(QVariantList{}));
    EXPECT_EQ(readPropertyListDictionary(path())->value(QStringLiteral("Sites")), QVariant(QVariantList{}));
    m_list.load();
    EXPECT_EQ(m_list.scanedURLList(), QStringList());
}

TEST_F(TrailerListTest, saveList_readsBackTheSame_whenTextsHoldWhatXmlCannot)
{
    TrailerRecord odd = record("http://h/a/a.mov");
    odd.size = QStringLiteral("4\x01"
                              "80\x0b x <20&4>\ufffe\U0001f600");
    m_list.store({odd});
    ASSERT_TRUE(m_list.saveList());
    m_list.load();
    EXPECT_EQ(m_list.record(odd.url)->size, QStringLiteral("480 x <20&4>\U0001f600"));
}

TEST_F(TrailerListTest, saveList_logsAndKeepsMemory_whenItsFolderCannotBeMade)
{
    QFile blocked(m_home.filePath(QStringLiteral("Library")));
    ASSERT_TRUE(blocked.open(QIODevice::WriteOnly));
    m_list.store({record("http://h/a/a.mov")});
    EXPECT_FALSE(m_list.saveList());
    EXPECT_EQ(m_log,
              (QStringList{
                  QStringLiteral("Cannot make the folder %1: Not a directory").arg(QFileInfo(path()).path()),
                  QStringLiteral("Failed to save list.")}));
    EXPECT_EQ(m_list.count(), 1);
    EXPECT_TRUE(m_list.isChanged());
}

TEST_F(TrailerListTest, saveList_leavesTheFileWhole_whenTheDiskIsFull)
{
    m_list.store({record("http://h/a/a.mov")});
    ASSERT_TRUE(m_list.saveList());
    const QByteArray before = bytesOf(path());
    const auto files = [](const QString& folder) {
        return QDir(folder).entryList(QDir::Files | QDir::Hidden);
    };
    const QStringList filesBefore = files(QFileInfo(path()).path());
    for (int i = 0; i < 100; ++i)
        m_list.store({record(qPrintable(QStringLiteral("http://h/b%1/b.mov").arg(i)))});

    rlimit old{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{static_cast<rlim_t>(before.size() + 10), old.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    const bool isSaved = m_list.saveList();
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &old), 0);
    std::signal(SIGXFSZ, ignored);

    EXPECT_FALSE(isSaved);
    EXPECT_EQ(bytesOf(path()), before);
    EXPECT_EQ(files(QFileInfo(path()).path()), filesBefore);
}

TEST_F(TrailerListTest, store_replacesTheWholeRecord_whenItsUrlIsThere)
{
    TrailerRecord old = record("http://h/a/a.mov", "320 x 240", "2006/01/01");
    old.other.insert(QStringLiteral("Sel"), true);
    m_list.store({old});
    m_list.store({record("http://h/a/a.mov")});
    EXPECT_EQ(m_list.record(old.url), record("http://h/a/a.mov"));
    EXPECT_EQ(m_list.count(), 1);
}

TEST_F(TrailerListTest, addPassed_saysWhetherThePageIsNew_andForgetPassedTakesItAway)
{
    EXPECT_TRUE(m_list.addPassed("http://h/a/"));
    EXPECT_FALSE(m_list.addPassed("http://h/a/"));
    m_list.forgetPassed("http://h/a/");
    m_list.forgetPassed("http://h/b/");
    EXPECT_FALSE(m_list.isPassed("http://h/a/"));
    EXPECT_TRUE(m_list.addPassed("http://h/a/"));
}

TEST_F(TrailerListTest, scanedURLList_isThere_whenAPageWithoutMoviesWasStored)
{
    EXPECT_FALSE(m_list.scanedURLList());
    m_list.store({});
    EXPECT_EQ(m_list.scanedURLList(), QStringList());
}

TEST_F(TrailerListTest, clear_forgetsRecordsAndPagesButNotTheFile_whenAsked)
{
    m_list.store({record("http://h/a/a.mov")});
    m_list.addPassed("http://h/a/");
    ASSERT_TRUE(m_list.saveList());
    const QByteArray before = bytesOf(path());
    m_list.clear();
    EXPECT_EQ(m_list.count(), 0);
    EXPECT_FALSE(m_list.scanedURLList());
    EXPECT_FALSE(m_list.isPassed("http://h/a/"));
    EXPECT_EQ(bytesOf(path()), before);
}

TEST_F(TrailerListTest, scanedURLList_followsKeyAndDirection_whenTheyChange)
{
    m_list.store({record("http://h/a", "", "2008/01/02"), record("http://h/b", "", "2008/01/01"),
                  record("http://h/c", "", "2008/01/01"), record("http://h/D", "", "2009/01/01")});
    TrailerRecord undated = record("http://h/e");
    undated.date.reset();
    m_list.store({undated});
    const auto letters = [this] {
        QString all;
        const QStringList urls = m_list.scanedURLList().value();
        for (const QString& url : urls)
            all += url.back();
        return all;
    };
    EXPECT_EQ(letters(), QStringLiteral("Dacbe"));
    m_list.setAscending(true);
    EXPECT_EQ(letters(), QStringLiteral("ebcaD"));
    m_list.setSortKey(QStringLiteral("URL"));
    EXPECT_EQ(letters(), QStringLiteral("Dabce"));
    m_list.setAscending(false);
    EXPECT_EQ(letters(), QStringLiteral("ecbaD"));
    m_list.setSortKey(QStringLiteral("Date"));
    EXPECT_EQ(letters(), QStringLiteral("Dacbe"));
    m_list.setSortKey(QString());
    EXPECT_EQ(letters(), QStringLiteral("Dacbe"));
}

TEST_F(TrailerListTest, sortedURLListByDate_keepsTheDirection_whenThePanelSortsByUrl)
{
    m_list.setSortKey(QStringLiteral("URL"));
    m_list.setAscending(true);
    const QHash<QString, TrailerRecord> some{{text("z"), record("z", "", "2008/01/01")},
                                             {text("y"), record("y", "", "2008/01/02")}};
    EXPECT_EQ(m_list.sortedURLListByDate(some), (QStringList{text("z"), text("y")}));
    EXPECT_EQ(m_list.sortedURLList(some), (QStringList{text("y"), text("z")}));
}

TEST_F(TrailerListTest, sortURLList_findsNoDifference_whenTheKeyIsAnother)
{
    const QString z = text("z");
    const QString y = text("y");
    const TrailerRecord older = record("z", "", "2008/01/01");
    const TrailerRecord newer = record("y", "", "2008/01/02");
    const TrailerEntry first{z, older};
    const TrailerEntry second{y, newer};
    EXPECT_EQ(sortURLList(first, second, {text("Size"), true}), 0);
    EXPECT_EQ(sortURLList(first, second, {text("Date"), true}), -1);
    EXPECT_EQ(sortURLList(first, second, {text("URL"), true}), 1);
    EXPECT_EQ(sortURLList(first, second, {text("URL"), false}), -1);
}

TEST_F(TrailerListTest, sortURLList_comparesTheDates_whenTheURLsAreTheSame)
{
    const QString same = text("z");
    const TrailerRecord older = record("z", "", "2008/01/01");
    const TrailerRecord newer = record("z", "", "2008/01/02");
    EXPECT_EQ(sortURLList({same, older}, {same, newer}, {text("URL"), true}), -1);
    EXPECT_EQ(sortURLList({same, older}, {same, newer}, {text("URL"), false}), 1);
    EXPECT_EQ(sortURLList({same, older}, {same, older}, {text("URL"), true}), 0);
}

TEST_F(TrailerListTest, lastTrailers_runsFromTheOldestPickToTheNewest_whenThereAreMore)
{
    m_list.store({record("http://h/1/a.mov", "480 x 204", "2008/01/01"),
                  record("http://h/2/a.mov", "480 x 204", "2008/01/02"),
                  record("http://h/3/a.mov", "480 x 204", "2008/01/03"),
                  record("http://h/4/a.mov", "640 x 272", "2008/01/04"),
                  record("http://h/5/a.mov", "--- x ---", "2008/01/05")});
    EXPECT_EQ(latest(2, 480), (QStringList{text("http://h/2/a.mov"), text("http://h/3/a.mov")}));
    EXPECT_EQ(latest(1, 640), QStringList(text("http://h/4/a.mov")));
    EXPECT_EQ(latest(9, 320), QStringList());
    EXPECT_EQ(latest(1, 0), QStringList(text("http://h/5/a.mov")));
}

TEST_F(TrailerListTest, lastTrailers_picksTheGreaterUrl_whenDatesAreEqual)
{
    m_list.store({record("http://h/1/a.mov"), record("http://h/2/a.mov"), record("http://h/3/a.mov")});
    EXPECT_EQ(latest(2, 480), (QStringList{text("http://h/2/a.mov"), text("http://h/3/a.mov")}));
}

TEST_F(TrailerListTest, lastTrailers_picksOneAFolder_whenAFolderHoldsSeveral)
{
    m_list.store({record("http://h/1/a.mov", "480 x 204", "2008/01/01"),
                  record("http://h/2/a.mov", "480 x 204", "2008/01/02"),
                  record("http://h/2/b.mov", "480 x 204", "2008/01/03")});
    EXPECT_EQ(latest(2, 480), (QStringList{text("http://h/1/a.mov"), text("http://h/2/b.mov")}));
    EXPECT_EQ(latest(2, 480, {text("http://h/2/b.mov")}),
              (QStringList{text("http://h/1/a.mov"), text("http://h/2/a.mov")}));
}

TEST_F(TrailerListTest, lastTrailers_answersAll_whenTheCountIsNotAboveZero)
{
    for (const int i : {1, 2, 3})
        m_list.store({record(qPrintable(QStringLiteral("http://h/%1/a.mov").arg(i)))});
    for (const int count : {0, -1, 4})
        EXPECT_EQ(latest(count, 480).size(), 3) << count;
}

TEST_F(TrailerListTest, lastTrailers_answersTheOldest_whenThePanelSortsAscending)
{
    m_list.store({record("http://h/1/a.mov", "480 x 204", "2008/01/01"),
                  record("http://h/2/a.mov", "480 x 204", "2008/01/02")});
    m_list.setSortKey(QStringLiteral("URL"));
    m_list.setAscending(true);
    EXPECT_EQ(latest(1, 480), QStringList(text("http://h/1/a.mov")));
}

TEST_F(TrailerListTest, lastTrailers_excludesByTheTextOfTheRecord_whenQUrlWritesItOtherwise)
{
    m_list.store({record("http://HOST/1/a.mov"), record("http://h/2/a.mov")});
    EXPECT_EQ(latest(0, 480, {text("http://HOST/1/a.mov")}), QStringList(text("http://h/2/a.mov")));
    EXPECT_EQ(latest(0, 480, {text("http://host/1/a.mov")}), QStringList(text("http://h/2/a.mov")));
}

TEST_F(TrailerListTest, curDateStr_isTodayInTheFormOfARecord_whenAsked)
{
    ManualClock clock;
    clock.setToday(QDate(2009, 2, 7));
    EXPECT_EQ(curDateStr(clock), QStringLiteral("2009/02/07"));
    EXPECT_EQ(defaultDateStr(), QStringLiteral("2006/09/01"));
}

TEST_F(TrailerListTest, list_staysWhole_whenAWorkerWritesWhileOthersRead)
{
    std::thread worker([this] {
        for (int i = 0; i < 300; ++i) {
            m_list.store({record(qPrintable(QStringLiteral("http://h/%1/a.mov").arg(i)))});
            m_list.addPassed(std::to_string(i));
        }
    });
    qsizetype seen = 0;
    while (seen < 300) {
        const auto urls = m_list.scanedURLList();
        const auto now = latest(0, 480).size();
        EXPECT_GE(now, urls ? urls->size() : 0);
        seen = now;
    }
    worker.join();
    EXPECT_EQ(m_list.passedList().size(), 300);
}

TEST_F(TrailerListTest, setSel_keepsTheValueInTheRecordAndTheFile)
{
    TrailerList list(m_home.path(), seed());
    list.store({record("http://h/a.mov")});
    ASSERT_TRUE(list.saveList());
    list.setSel(QStringLiteral("http://h/a.mov"), true);
    EXPECT_TRUE(list.isChanged());
    ASSERT_TRUE(list.saveList());
    TrailerList loaded(m_home.path(), seed());
    loaded.load();
    EXPECT_EQ(loaded.record(QStringLiteral("http://h/a.mov"))->other.value(QStringLiteral("Sel")),
              QVariant(true));
}

TEST_F(TrailerListTest, setSel_makesNoRecord_whenThereIsNone)
{
    TrailerList list(m_home.path(), seed());
    list.setSel(QStringLiteral("http://h/a.mov"), true);
    EXPECT_EQ(list.count(), 0);
    EXPECT_FALSE(list.isChanged());
}

TEST_F(TrailerListTest, frameWidths_areEachOnce_theSmallestFirst)
{
    TrailerList list(m_home.path(), seed());
    EXPECT_TRUE(list.frameWidths().isEmpty());
    TrailerRecord sizeless = record("http://h/e.mov");
    sizeless.size.reset();
    list.store({record("http://h/a.mov", "1280 x 720"), record("http://h/b.mov", "480 x 204"),
                record("http://h/c.mov", "480 x ---"), record("http://h/d.mov", "--- x 204"), sizeless});
    EXPECT_EQ(list.frameWidths(), (QStringList{QStringLiteral("480"), QStringLiteral("1280")}));
}

} // namespace kestro
