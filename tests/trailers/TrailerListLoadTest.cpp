#include "trailers/TrailerListFixture.h"

namespace kestro {

namespace {

const QString a = QStringLiteral("http://h/trailers/a/a.mov");
const QString b = QStringLiteral("http://h/trailers/b/b.mov");

} // namespace

class TrailerListLoad : public TrailerListFixture {
protected:
    TrailerList& loaded()
    {
        m_list.load();
        return m_list;
    }

private:
    TrailerList m_list{m_home.path(), seed()};
};

TEST_F(TrailerListLoad, load_leavesTheListEmpty_whenThereIsNeitherFileNorSeed)
{
    EXPECT_EQ(loaded().count(), 0);
    EXPECT_FALSE(loaded().scanedURLList());
    EXPECT_FALSE(QFile::exists(path()));
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(TrailerListLoad, load_installsTheSeed_whenThereIsNoFile)
{
    writeSeed({stored(a)});
    ASSERT_TRUE(QFile::setPermissions(seed(), QFileDevice::ReadOwner));
    EXPECT_EQ(loaded().scanedURLList(), QStringList(a));
    EXPECT_EQ(bytesOf(path()), bytesOf(seed()));
    EXPECT_TRUE(loaded().saveList());
}

TEST_F(TrailerListLoad, load_readsRecordsAndPages_whenTheFileIsOfToday)
{
    QVariantMap first = stored(a);
    first.insert(QStringLiteral("AC"), QStringLiteral("Y"));
    first.insert(QStringLiteral("Sel"), true);
    QVariantMap file = listOf({first, stored(b)});
    file.insert(QStringLiteral("Sites"), QVariantList{QStringLiteral("http://h/trailers/"), 5});
    writeFile(file);

    TrailerRecord expected = record("http://h/trailers/a/a.mov");
    expected.ac = true;
    expected.other.insert(QStringLiteral("Sel"), true);
    EXPECT_EQ(loaded().record(a), expected);
    EXPECT_EQ(loaded().record(b), record("http://h/trailers/b/b.mov"));
    EXPECT_EQ(loaded().passedList(), QSet<QByteArray>{"http://h/trailers/"});
    EXPECT_TRUE(loaded().isPassed("http://h/trailers/"));
    EXPECT_FALSE(loaded().isPassed("http://h/trailers"));
    EXPECT_FALSE(loaded().isChanged());
}

TEST_F(TrailerListLoad, load_keepsRecordsWithoutDate_whenTheFileIsAnArray)
{
    QVariantMap undated = stored(a);
    undated.remove(QStringLiteral("Date"));
    writeFile(listOf({undated}));
    EXPECT_EQ(loaded().record(a)->date, std::nullopt);
}

TEST_F(TrailerListLoad, load_datesRecordsWithoutDate_whenTheFileIsADictionary)
{
    QVariantMap undated = stored(a);
    undated.remove(QStringLiteral("Date"));
    writeFile({{QStringLiteral("Ver"), QStringLiteral("1")},
               {QStringLiteral("Trailers"), QVariantMap{{a, undated}, {b, stored(b)}}}});
    EXPECT_EQ(loaded().record(a)->date, QStringLiteral("2006/09/01"));
    EXPECT_EQ(loaded().record(b)->date, QStringLiteral("2008/03/14"));
}

TEST_F(TrailerListLoad, load_takesTheKeyAsUrl_whenARecordOfADictionaryHasNone)
{
    QVariantMap nameless = stored(a);
    nameless.remove(QStringLiteral("URL"));
    writeFile({{QStringLiteral("Ver"), QStringLiteral("1")},
               {QStringLiteral("Trailers"), QVariantMap{{a, nameless}}}});
    EXPECT_EQ(loaded().record(a)->url, a);
}

TEST_F(TrailerListLoad, load_leavesOutWithOneLine_whatIsNoMovieOnAWebSite)
{
    const QStringList strangers{QStringLiteral("file:///home/ada/diary.mp4#.mov"),
                                QStringLiteral("http://example.com/x.swf"),
                                QStringLiteral("http://example.com/x%2eswf/?.mov"),
                                QStringLiteral("/home/ada/t.mov"),
                                QStringLiteral("t.mov"),
                                QStringLiteral("edl://t.mov"),
                                QStringLiteral("smb://h/t.mov"),
                                QStringLiteral("data:video/mp4,x.mov"),
                                QStringLiteral("http:///t.mov"),
                                QStringLiteral("ftp://h/t.mov"),
                                QStringLiteral("httpx://h/t.mov"),
                                QStringLiteral("auto://LatestTrailers/6/480")};
    QVariantList trailers{stored(a)};
    QVariantMap old{{a, stored(a)}, {b, stored(QStringLiteral("file:///t.mov"))}};
    for (const QString& url : strangers) {
        trailers.append(stored(url));
        old.insert(url, stored(url));
    }
    trailers.append(stored(b));
    writeFile(listOf(trailers));
    EXPECT_EQ(loaded().scanedURLList(), (QStringList{b, a}));
    EXPECT_EQ(m_log,
              QStringList(QStringLiteral("12 entries of %1 are no movies on a web site and are left out; "
                                         "the first: file:///home/ada/diary.mp4")
                              .arg(path())));
    m_log.clear();
    writeFile({{QStringLiteral("Ver"), QStringLiteral("1")}, {QStringLiteral("Trailers"), old}});
    EXPECT_EQ(loaded().scanedURLList(), QStringList(a));
    EXPECT_EQ(m_log.size(), 1);
}

TEST_F(TrailerListLoad, load_leavesOutOfTheSeedToo_whatIsNoMovieOnAWebSite)
{
    writeSeed({stored(QStringLiteral("file:///t.mov")), stored(a)});
    EXPECT_EQ(loaded().scanedURLList(), QStringList(a));
}

TEST_F(TrailerListLoad, load_keepsMoviesOfEverySite_whateverTheirOrder)
{
    QStringList urls{QStringLiteral("http://h/z.mov"),          QStringLiteral("https://o:8080/y.mov"),
                     QStringLiteral("http://u:p@h/x.mov"),      QStringLiteral("http://h"),
                     QStringLiteral("http://h/a b/\u00e4.mov"), QStringLiteral("HTTP://H/w.mp4?q#f")};
    QVariantList trailers;
    for (const QString& url : urls + urls)
        trailers.append(stored(url));
    writeFile(listOf(trailers));
    auto expected = urls;
    expected.sort();
    auto kept = *loaded().scanedURLList();
    kept.sort();
    EXPECT_EQ(kept, expected);
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(TrailerListLoad, load_keepsWhatItCanOfARecord_whenValuesAreOfOtherKinds)
{
    writeFile(listOf({QVariantMap{{QStringLiteral("URL"), a},
                                  {QStringLiteral("Size"), 480},
                                  {QStringLiteral("Date"), QVariantList{}},
                                  {QStringLiteral("AC"), QStringLiteral("N")}},
                      QVariantMap{{QStringLiteral("URL"), 7}}, QVariantMap{}, 5, QStringLiteral("x")}));
    EXPECT_EQ(loaded().count(), 1);
    EXPECT_FALSE(loaded().record(a)->ac);
    ASSERT_TRUE(loaded().saveList());
    const auto again = readPropertyListDictionary(path());
    const auto saved = again->value(QStringLiteral("Trailers")).toList().value(0).toMap();
    EXPECT_EQ(saved.value(QStringLiteral("Size")), QVariant(480LL));
    EXPECT_EQ(saved.value(QStringLiteral("Date")), QVariant(QVariantList{}));
    EXPECT_EQ(saved.value(QStringLiteral("AC")), QStringLiteral("N"));
}

TEST_F(TrailerListLoad, load_isEmptyButThere_whenTrailersAreOfAnotherKindOrEmpty)
{
    for (const QVariant& trailers : {QVariant(QVariantList{}), QVariant(QStringLiteral("x"))}) {
        writeFile({{QStringLiteral("Ver"), QStringLiteral("1")},
                   {QStringLiteral("Trailers"), trailers},
                   {QStringLiteral("Sites"), 5}});
        EXPECT_EQ(loaded().scanedURLList(), QStringList());
    }
    writeFile({{QStringLiteral("Ver"), QStringLiteral("1")}});
    EXPECT_FALSE(loaded().scanedURLList());
}

TEST_F(TrailerListLoad, load_putsTheSeedInItsPlace_whenTheFileHasNoVersion)
{
    writeSeed({stored(b)});
    writeFile({{QStringLiteral("Trailers"), QVariantList{stored(a)}}});
    const QByteArray old = bytesOf(path());
    EXPECT_EQ(loaded().scanedURLList(), QStringList(b));
    EXPECT_EQ(bytesOf(backup()), old);
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(TrailerListLoad, load_readsTheOldFileAsItIs_whenItHasNoVersionAndThereIsABackup)
{
    writeSeed({stored(b)});
    writeFile({{QStringLiteral("Trailers"), QVariantList{stored(a)}}});
    ASSERT_TRUE(QFile::copy(path(), backup()));
    EXPECT_EQ(loaded().scanedURLList(), QStringList(a));
}

TEST_F(TrailerListLoad, load_keepsABackup_whenTheFileCannotBeRead)
{
    for (const char* bytes : {"", "no list", "<plist><array/></plist>", "<plist><dict><key>Ver</key>"}) {
        writeBytes(bytes);
        EXPECT_EQ(loaded().count(), 0);
        EXPECT_FALSE(QFile::exists(path())) << bytes;
        EXPECT_EQ(bytesOf(backup()), bytes);
        ASSERT_EQ(m_log.size(), 1) << bytes;
        EXPECT_TRUE(m_log.front().contains(path()));
        m_log.clear();
        ASSERT_TRUE(QFile::remove(backup()));
    }
}

TEST_F(TrailerListLoad, load_keepsEveryBackup_whenTheFileCannotBeReadAgain)
{
    for (const char* bytes : {"first", "second", "third"}) {
        writeBytes(bytes);
        loaded().saveList();
    }
    EXPECT_EQ(bytesOf(backup()), "first");
    EXPECT_EQ(bytesOf(path("Kestro_Scanned_Trailers~1.lst")), "second");
    EXPECT_EQ(bytesOf(path("Kestro_Scanned_Trailers~2.lst")), "third");
}

TEST_F(TrailerListLoad, load_replacesWhatWasThere_whenCalledAgain)
{
    writeFile(listOf({stored(a)}));
    loaded().addPassed("http://h/trailers/x");
    writeFile(listOf({stored(b)}));
    EXPECT_EQ(loaded().scanedURLList(), QStringList(b));
    EXPECT_TRUE(loaded().passedList().isEmpty());
}

} // namespace kestro
