#include "config_ui/EntryText.h"

#include "config_ui/EntryFacts.h"

#include <QTranslator>

#include <gtest/gtest.h>

namespace kestro {

namespace {

PlaylistEntry entry(const char* text)
{
    return {QUrl(QString::fromUtf8(text)), QString::fromUtf8(text)};
}

QString durationOf(double seconds)
{
    const EntryFacts facts{.seconds = seconds, .picture = {}, .fault = {}};
    return EntryText::duration(&facts);
}

const EntryFacts broken{.seconds = 0, .picture = {}, .fault = MovieFault{MovieFault::Kind::NoFile}};

} // namespace

TEST(EntryText, hasMovie_isTrueForMoviesOnly)
{
    for (const char* text : {"file:///a.mov", "http://m/a", "https://m/a.mp4"})
        EXPECT_TRUE(EntryText::hasMovie(QUrl(text))) << text;
    for (const char* text :
         {"auto://LatestTrailers/6/480", "http://m/a.swf", "http://m/page.html", "file:///a.QT"})
        EXPECT_FALSE(EntryText::hasMovie(QUrl(text))) << text;
}

TEST(EntryText, name_isTheLastPartOfThePath)
{
    EXPECT_EQ(EntryText::name(entry("file:///movies/My%20Movie.mov")), "My Movie.mov");
    EXPECT_EQ(EntryText::name(entry("http://m/a/b.mov?x=1")), "b.mov");
    EXPECT_EQ(EntryText::name(entry("http://example.com")), "example.com");
    EXPECT_EQ(EntryText::name(entry("auto://LatestTrailers/6/480")), "Newest trailers");
}

TEST(EntryText, name_isTheTextItself_whereAnAutomaticEntryNamesNothing)
{
    for (const char* text : {"auto:", "auto:6/480", "auto:x/6/480"}) {
        EXPECT_EQ(EntryText::name(entry(text)), text);
        EXPECT_TRUE(EntryText::isFault(entry(text), nullptr)) << text;
    }
    for (const char* text : {"auto:///6/480", "auto:/6/480", "auto://LatestTrailers"})
        EXPECT_EQ(EntryText::name(entry(text)), "Newest trailers") << text;
}

TEST(EntryText, detail_isWhereAMovieLies)
{
    EXPECT_EQ(EntryText::detail(entry("file:///movies/new/a.mov"), nullptr), "/movies/new");
    EXPECT_EQ(EntryText::detail(entry("http://example.com/x/a.mov"), nullptr), "example.com");
    EXPECT_EQ(EntryText::detail(entry("http://example.com/x/a.swf"), nullptr), "Web content, example.com");
}

TEST(EntryText, detail_saysWhatAnAutomaticEntryStandsFor)
{
    EXPECT_EQ(EntryText::detail(entry("auto://LatestTrailers/6/480"), nullptr),
              "6 newest trailers, each 480 pixels wide");
    EXPECT_EQ(EntryText::detail(entry("auto://LatestTrailers/0/640"), nullptr),
              "All trailers, each 640 pixels wide");
    EXPECT_EQ(EntryText::detail(entry("auto://LatestTrailers/1/640"), nullptr),
              "The newest trailer, 640 pixels wide");
    EXPECT_FALSE(EntryText::isFault(entry("auto://LatestTrailers/6/480"), nullptr));
}

TEST(EntryText, detail_saysWhatAFolderHolds)
{
    const PlaylistEntry folder = entry("folder:///home/ada/My%20Videos/?recursive=1");
    EXPECT_EQ(EntryText::name(folder), "My Videos");
    EXPECT_EQ(EntryText::detail(folder, nullptr), "Folder, /home/ada/My Videos");
    struct Case {
        qsizetype movies;
        const char* text;
    };
    for (const Case& c : {Case{0, "Folder without movies, /home/ada/My Videos"},
                          Case{1, "Folder with one movie, /home/ada/My Videos"},
                          Case{12, "Folder with 12 movies, /home/ada/My Videos"}}) {
        EntryFacts facts;
        facts.movies = c.movies;
        EXPECT_EQ(EntryText::detail(folder, &facts), c.text);
        EXPECT_FALSE(EntryText::isFault(folder, &facts));
    }
    EntryFacts silent;
    silent.fault = MovieFault{MovieFault::Kind::NoAnswer};
    EXPECT_TRUE(EntryText::isFault(folder, &silent));
    EXPECT_TRUE(EntryText::detail(folder, &silent).startsWith("Cannot be opened: "));
}

TEST(EntryText, detail_saysWhatAListHolds)
{
    const PlaylistEntry list = entry("file:///home/ada/My%20Lists/films.m3u");
    EXPECT_EQ(EntryText::name(list), "films.m3u");
    EXPECT_EQ(EntryText::detail(list, nullptr), "List, /home/ada/My Lists");
    struct Case {
        qsizetype movies;
        const char* text;
    };
    for (const Case& c : {Case{0, "List without movies, /home/ada/My Lists"},
                          Case{1, "List with one movie, /home/ada/My Lists"},
                          Case{12, "List with 12 movies, /home/ada/My Lists"}}) {
        EntryFacts facts;
        facts.movies = c.movies;
        EXPECT_EQ(EntryText::detail(list, &facts), c.text);
        EXPECT_FALSE(EntryText::isFault(list, &facts));
    }
    EXPECT_EQ(EntryText::detail(entry("http://example.com/films.m3u8"), nullptr), "example.com");
}

TEST(EntryText, folderOfAnotherMachine_isAFault)
{
    const PlaylistEntry folder = entry("folder://server/a");
    EXPECT_TRUE(EntryText::isFault(folder, nullptr));
    EXPECT_EQ(EntryText::detail(folder, nullptr), "Left out: it names no folder of this machine");
    EXPECT_FALSE(EntryText::hasMovie(folder.url));
    EXPECT_TRUE(EntryText::hasMovie(QUrl("folder:///a.pl")));
}

TEST(EntryText, detail_saysWhyAnEntryDoesNotPlay)
{
    struct Case {
        const char* text;
        const EntryFacts* facts;
        const char* reason;
    };
    for (const Case& each : {Case{"auto://LatestTrailers/480", nullptr,
                                  "Left out: it does not say how many trailers of which width"},
                             Case{"http://m/page.html", nullptr, "Left out: a web page, no movie"},
                             Case{"file:///a.mov", &broken, "Cannot be opened: no such file"}}) {
        EXPECT_EQ(EntryText::detail(entry(each.text), each.facts), each.reason);
        EXPECT_TRUE(EntryText::isFault(entry(each.text), each.facts)) << each.text;
        EXPECT_TRUE(EntryText::toolTip(entry(each.text), each.facts)
                        .startsWith(QString::fromUtf8(each.text) + u'\n' + QString::fromUtf8(each.reason)));
    }
}

TEST(EntryText, detail_namesTheServerBesideTheReason)
{
    EXPECT_EQ(EntryText::detail(entry("http://example.com/a.mov"), &broken),
              "example.com: cannot be opened, no such file");
}

TEST(EntryText, toolTip_saysHowToLookAgain_whereThatMayHelp)
{
    const QString way = "\nA click on the sign looks again.";
    EXPECT_TRUE(EntryText::toolTip(entry("file:///a.mov"), &broken).endsWith(way));
    EXPECT_FALSE(EntryText::toolTip(entry("http://m/page.html"), nullptr).endsWith(way));
}

TEST(EntryText, detail_saysTheReasonInTheUsersLanguage)
{
    class Translator final : public QTranslator {
        [[nodiscard]] bool isEmpty() const override { return false; }
        [[nodiscard]] QString translate(const char*, const char* text, const char*, int) const override
        {
            return QString::fromUtf8(text).toUpper();
        }
    };
    Translator translator;
    QCoreApplication::installTranslator(&translator);
    const EntryFacts large{
        .seconds = 0, .picture = {}, .fault = MovieFault{MovieFault::Kind::TooLarge, "9x9"}};
    const EntryFacts foreign{
        .seconds = 0, .picture = {}, .fault = MovieFault{MovieFault::Kind::Other, "Bad %1"}};
    EXPECT_EQ(EntryText::detail(entry("file:///a.mov"), &broken), "CANNOT BE OPENED: NO SUCH FILE");
    EXPECT_EQ(EntryText::detail(entry("file:///a.mov"), &foreign), "CANNOT BE OPENED: Bad %1");
    EXPECT_EQ(EntryText::detail(entry("file:///a.mov"), &large), "CANNOT BE OPENED: TOO LARGE: 9x9");
}

TEST(EntryText, toolTip_isTheWholeURL)
{
    EXPECT_EQ(EntryText::toolTip(entry("http://Example.com/x/a.mov"), nullptr), "http://Example.com/x/a.mov");
}

TEST(EntryText, duration_isMinutesAndSeconds_andHoursWhereThereAreAny)
{
    EXPECT_EQ(durationOf(0.2), "0:01");
    EXPECT_EQ(durationOf(65.4), "1:05");
    EXPECT_EQ(durationOf(599.6), "10:00");
    EXPECT_EQ(durationOf(3723), "1:02:03");
}

TEST(EntryText, duration_isEmpty_whenUnknown)
{
    EXPECT_EQ(durationOf(0), "");
    EXPECT_EQ(EntryText::duration(nullptr), "");
}

} // namespace kestro
