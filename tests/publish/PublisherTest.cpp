#include "publish/Publisher.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {
namespace {

/// Knows movies by what their files hold: "480x204", or "broken".
class TextReader final : public MovieReader {
public:
    Result<void> learn(SourceMovie& movie, const QString& path) override
    {
        ++learned;
        QFile file(path);
        const QByteArray text = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        if (!text.contains('x')) return Error{QStringLiteral("no movie")};
        movie.width = text.left(text.indexOf('x')).toInt();
        movie.height = text.mid(text.indexOf('x') + 1).toInt();
        movie.seconds = 5;
        return {};
    }

    QByteArray poster(const SourceMovie& movie, const QString& /*path*/) override
    {
        ++drawn;
        return hasPosters ? "poster of " + movie.path.toUtf8() : QByteArray();
    }

    int learned = 0;
    int drawn = 0;
    bool hasPosters = true;
};

class NoWatcher final : public PublishWatcher {
public:
    void reading(const QString& /*name*/, std::size_t /*number*/, std::size_t /*count*/) override {}
    void writing(const QString& /*name*/, std::size_t /*number*/, std::size_t /*count*/) override {}
};

class PublisherOnDisk : public testing::Test {
protected:
    void SetUp() override { QDir().mkpath(m_movies); }

    void put(const QString& path, const QByteArray& content)
    {
        const QString whole = m_movies + u'/' + path;
        QDir().mkpath(QFileInfo(whole).path());
        QFile::remove(whole);
        QFile file(whole);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    Result<PublishReport> publish()
    {
        return Publisher({m_movies, m_site, {}, MovieTransfer::Link}, m_reader, m_watcher).publish();
    }

    [[nodiscard]] QByteArray onSite(const QString& file) const
    {
        QFile there(m_site + QStringLiteral("/trailers/") + file);
        return there.open(QIODevice::ReadOnly) ? there.readAll() : QByteArray();
    }

    [[nodiscard]] QStringList siteFiles() const
    {
        QStringList files;
        const QString root = m_site + QStringLiteral("/trailers/");
        for (QDirIterator all(root, QDir::Files, QDirIterator::Subdirectories); all.hasNext();)
            files += all.next().mid(root.size());
        files.sort();
        return files;
    }

    QTemporaryDir m_holder;
    QString m_movies = m_holder.filePath(QStringLiteral("movies"));
    QString m_site = m_holder.filePath(QStringLiteral("site"));
    TextReader m_reader;
    NoWatcher m_watcher;
};

TEST_F(PublisherOnDisk, writesPagesPostersAndMovies)
{
    put(QStringLiteral("waves_480.mov"), "480x204");
    put(QStringLiteral("waves_640.mp4"), "640x272");
    const auto report = publish();
    ASSERT_TRUE(report.isOk()) << report.error().toStdString();
    EXPECT_EQ(report.value().titles, 1U);
    EXPECT_EQ(report.value().movies, 2U);
    EXPECT_EQ(report.value().widths, (std::map<int, int>{{480, 1}, {640, 1}}));
    QStringList expected;
    for (const char* file : {"feed.json", "gallery.js", "icon.svg", "index.html", "player.js", "poster.svg",
                             "site.css", "waves/index.html", "waves/poster.jpg", "waves/waves_480.mov",
                             "waves/waves_640.mov", "waves/waves_640.mp4"})
        expected += QString::fromLatin1(file);
    EXPECT_EQ(siteFiles(), expected);
    EXPECT_EQ(onSite(QStringLiteral("waves/waves_640.mov")), "640x272");
    EXPECT_EQ(onSite(QStringLiteral("waves/poster.jpg")), "poster of waves_640.mp4");
}

TEST_F(PublisherOnDisk, readsAndWritesNothing_whenNothingChanged)
{
    put(QStringLiteral("waves_480.mov"), "480x204");
    ASSERT_TRUE(publish().isOk());
    m_reader = {};
    const auto again = publish();
    ASSERT_TRUE(again.isOk());
    EXPECT_EQ(again.value().written, 0);
    EXPECT_EQ(again.value().removed, 0);
    EXPECT_EQ(m_reader.learned, 0);
    EXPECT_EQ(m_reader.drawn, 0);
}

TEST_F(PublisherOnDisk, followsTheMovies_whenTheyChange)
{
    put(QStringLiteral("waves_480.mov"), "480x204");
    put(QStringLiteral("reef_480.mov"), "480x204");
    ASSERT_TRUE(publish().isOk());
    QFile::remove(m_movies + QStringLiteral("/reef_480.mov"));
    put(QStringLiteral("waves_480.mov"), "480x200 ");
    ASSERT_TRUE(publish().isOk());
    EXPECT_FALSE(QFileInfo::exists(m_site + QStringLiteral("/trailers/reef")));
    EXPECT_TRUE(onSite(QStringLiteral("waves/index.html")).contains("'480','200'"));
    EXPECT_FALSE(onSite(QStringLiteral("index.html")).contains("reef"));
}

TEST_F(PublisherOnDisk, leavesBrokenMoviesOut)
{
    put(QStringLiteral("waves.mov"), "480x204");
    put(QStringLiteral("torn.mov"), "broken");
    const auto report = publish();
    ASSERT_TRUE(report.isOk());
    ASSERT_EQ(report.value().leftOut.size(), 1U);
    EXPECT_EQ(report.value().leftOut[0].path, QStringLiteral("torn.mov"));
    EXPECT_FALSE(onSite(QStringLiteral("index.html")).contains("torn"));
}

TEST_F(PublisherOnDisk, isAnErrorAndChangesNothing_whenNoMovieIsLeft)
{
    put(QStringLiteral("waves.mov"), "480x204");
    ASSERT_TRUE(publish().isOk());
    const QStringList before = siteFiles();
    QFile::remove(m_movies + QStringLiteral("/waves.mov"));
    EXPECT_FALSE(publish().isOk());
    put(QStringLiteral("torn.mov"), "broken");
    EXPECT_FALSE(publish().isOk());
    EXPECT_EQ(siteFiles(), before);
}

TEST_F(PublisherOnDisk, doesNotPublishItsOwnSite_whenThatLiesAmongTheMovies)
{
    for (const char* site : {"movies/site", "movies"}) {
        m_site = m_holder.filePath(QString::fromLatin1(site));
        put(QStringLiteral("waves.mov"), "480x204");
        ASSERT_TRUE(publish().isOk());
        const auto again = publish();
        ASSERT_TRUE(again.isOk()) << site;
        EXPECT_EQ(again.value().movies, 1U) << site;
        QDir(m_holder.filePath(QStringLiteral("movies/site"))).removeRecursively();
    }
}

TEST_F(PublisherOnDisk, publishesMovies_thatLieInTheSitesFolder)
{
    m_site = m_holder.path();
    put(QStringLiteral("waves.mov"), "480x204");
    ASSERT_TRUE(publish().isOk());
    EXPECT_EQ(onSite(QStringLiteral("waves/waves_480.mov")), "480x204");
    m_movies = m_site + QStringLiteral("/trailers/waves");
    EXPECT_FALSE(publish().isOk());
}

TEST_F(PublisherOnDisk, showsWhatStandsForAnyMovie_whenNoPictureCanBeHad)
{
    put(QStringLiteral("waves.mov"), "480x204");
    m_reader.hasPosters = false;
    const auto report = publish();
    ASSERT_TRUE(report.isOk());
    ASSERT_EQ(report.value().withoutPoster.size(), 1U);
    EXPECT_FALSE(siteFiles().contains(QStringLiteral("waves/poster.jpg")));
    EXPECT_FALSE(onSite(QStringLiteral("index.html")).contains("poster&#46;jpg"));
}

} // namespace
} // namespace kestro
