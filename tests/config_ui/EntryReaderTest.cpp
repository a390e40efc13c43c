#include "config_ui/EntryReader.h"

#include "platform/movie/StillDecoder.h"
#include "support/WaitUntil.h"

#include <QFile>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>
#include <latch>
#include <vector>

namespace kestro {

namespace {

const QUrl file = QUrl::fromLocalFile(QStringLiteral("/a.mov"));
const QUrl other = QUrl::fromLocalFile(QStringLiteral("/b.mov"));
const QUrl remote(QStringLiteral("http://m/a.mov"));

class EntryReaderTest : public testing::Test {
protected:
    static std::vector<QUrl>& noting(EntryReader& reader, std::vector<QUrl>& learned)
    {
        QObject::connect(&reader, &EntryReader::learned, &reader,
                         [&learned](const QUrl& url) { learned.push_back(url); });
        return learned;
    }
};

QUrl testMovie(const char* name)
{
    return QUrl::fromLocalFile(QStringLiteral(KESTRO_TEST_MOVIES "/") + QString::fromLatin1(name));
}

} // namespace

TEST_F(EntryReaderTest, want_learnsInTheBackground)
{
    std::vector<QUrl> learned;
    QThread* readOn = nullptr;
    EntryReader reader([&](const QUrl&, const std::stop_token&) {
        readOn = QThread::currentThread();
        return EntryFacts{.seconds = 5, .picture = {}, .fault = {}};
    });
    noting(reader, learned);
    EXPECT_EQ(reader.facts(file), nullptr);
    reader.want({file});
    ASSERT_TRUE(waitUntil([&] { return learned.size() == 1; }));
    ASSERT_NE(reader.facts(file), nullptr);
    EXPECT_EQ(reader.facts(file)->seconds, 5);
    EXPECT_NE(readOn, QThread::currentThread());
}

TEST_F(EntryReaderTest, want_readsNothingTwice)
{
    std::vector<QUrl> learned;
    std::atomic<int> reads = 0;
    EntryReader reader([&](const QUrl&, const std::stop_token&) {
        ++reads;
        return EntryFacts{};
    });
    noting(reader, learned);
    reader.want({file, file});
    ASSERT_TRUE(waitUntil([&] { return learned.size() == 1; }));
    reader.want({file, other});
    ASSERT_TRUE(waitUntil([&] { return learned.size() == 2; }));
    EXPECT_EQ(learned, (std::vector<QUrl>{file, other}));
    EXPECT_EQ(reads, 2);
}

TEST_F(EntryReaderTest, want_readsFilesWhileAServerDoesNotAnswer)
{
    std::vector<QUrl> learned;
    std::latch answer(1);
    EntryReader reader([&](const QUrl& url, const std::stop_token&) {
        if (!url.isLocalFile()) answer.wait();
        return EntryFacts{};
    });
    noting(reader, learned);
    reader.want({remote, file});
    ASSERT_TRUE(waitUntil([&] { return learned.size() == 1; }));
    EXPECT_EQ(learned, std::vector<QUrl>{file});
    answer.count_down();
    ASSERT_TRUE(waitUntil([&] { return learned.size() == 2; }));
}

TEST_F(EntryReaderTest, reader_forgetsWhatWasLearnedFirst_whenThereAreManyPictures)
{
    std::vector<QUrl> learned;
    const QImage large(2048, 2048, QImage::Format_RGB32); // 16 MiB
    EntryReader reader([&](const QUrl&, const std::stop_token&) {
        return EntryFacts{.seconds = 5, .picture = large, .fault = {}};
    });
    noting(reader, learned);
    reader.want({file, other});
    ASSERT_TRUE(waitUntil([&] { return learned.size() == 2; }));
    EXPECT_NE(reader.facts(other), nullptr);
    reader.want({remote});
    ASSERT_TRUE(waitUntil([&] { return learned.size() == 3; }));
    EXPECT_EQ(reader.facts(file), nullptr);
    EXPECT_NE(reader.facts(remote), nullptr);
}

TEST_F(EntryReaderTest, forgetFaults_forgetsWhatCannotBeOpenedAlone)
{
    std::vector<QUrl> learned;
    EntryReader reader([&](const QUrl& url, const std::stop_token&) {
        return url == file
                   ? EntryFacts{.seconds = 0, .picture = {}, .fault = MovieFault{MovieFault::Kind::NoFile}}
                   : EntryFacts{.seconds = 5, .picture = {}, .fault = {}};
    });
    noting(reader, learned);
    reader.want({file, other});
    ASSERT_TRUE(waitUntil([&] { return learned.size() == 2; }));
    learned.clear();
    reader.forgetFaults();
    EXPECT_EQ(learned, std::vector<QUrl>{file});
    EXPECT_EQ(reader.facts(file), nullptr);
    EXPECT_NE(reader.facts(other), nullptr);
}

TEST_F(EntryReaderTest, end_stopsWhatIsBeingRead)
{
    std::atomic<bool> begun = false;
    std::atomic<bool> stopped = false;
    {
        EntryReader reader([&](const QUrl&, const std::stop_token& stop) {
            begun = true;
            begun.notify_all();
            while (!stop.stop_requested())
                std::this_thread::yield();
            stopped = true;
            return EntryFacts{};
        });
        reader.want({file});
        begun.wait(false);
    }
    EXPECT_TRUE(stopped);
}

TEST_F(EntryReaderTest, readEntry_tellsDurationAndPicture)
{
    const EntryFacts facts = readEntry(testMovie("plain.mp4"), {64, 36}, {});
    EXPECT_NEAR(facts.seconds, 2, 0.04);
    EXPECT_EQ(facts.picture.size(), QSize(64, 36));
    EXPECT_EQ(facts.fault, std::nullopt);
}

TEST_F(EntryReaderTest, readEntry_countsTheMoviesOfAFolder)
{
    const QTemporaryDir folder;
    for (const char* name : {"a.mov", "b.mkv", "c.txt"})
        EXPECT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    const EntryFacts facts = readEntry(QUrl(QStringLiteral("folder://") + folder.path()), {64, 36}, {});
    EXPECT_EQ(facts.movies, 2);
    EXPECT_FALSE(facts.fault.has_value());
    EXPECT_TRUE(facts.picture.isNull());
}

TEST_F(EntryReaderTest, readEntry_takesThePictureAQuarterIntoTheMovie)
{
    const QUrl movie = testMovie("plain.mp4"); // of 2 s
    StillDecoder stills(movie);
    stills.setSize({64, 36});
    const auto pictureAt = [&](double seconds) {
        return stills.picture(seconds, std::chrono::seconds(60), {}).image;
    };
    const QImage picture = readEntry(movie, {64, 36}, {}).picture;
    EXPECT_EQ(picture, pictureAt(0.5));
    EXPECT_NE(picture, pictureAt(0));
    EXPECT_NE(picture, pictureAt(1.5));
}

TEST_F(EntryReaderTest, readEntry_keepsTheShapeOfTheMovie)
{
    EXPECT_EQ(readEntry(testMovie("rotated90.mp4"), {64, 36}, {}).picture.size(), QSize(20, 36));
}

TEST_F(EntryReaderTest, readEntry_saysWhyAMovieCannotBeOpened)
{
    using Kind = MovieFault::Kind;
    EXPECT_EQ(readEntry(testMovie("missing.mov"), {64, 36}, {}).fault, MovieFault{Kind::NoFile});
    EXPECT_EQ(readEntry(testMovie("empty.mov"), {64, 36}, {}).fault, MovieFault{Kind::EmptyFile});
    EXPECT_EQ(readEntry(QUrl("ftp://m/a.mov"), {64, 36}, {}).fault, MovieFault{Kind::OtherScheme});
    EXPECT_EQ(readEntry(QUrl("http://127.0.0.1:1/a.mov"), {64, 36}, {}).fault, MovieFault{Kind::NotReached});
}

} // namespace kestro
