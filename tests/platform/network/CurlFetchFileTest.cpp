#include "platform/network/CurlFetchTest.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestro {

namespace {

class CurlFetchFile : public ::testing::Test {
protected:
    [[nodiscard]] QString path(const char* name) const { return m_folder.filePath(QString::fromUtf8(name)); }
    [[nodiscard]] std::string url(const char* name) const
    {
        return QUrl::fromLocalFile(path(name)).toEncoded().toStdString();
    }
    void write(const char* name, const QByteArray& bytes) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    QTemporaryDir m_folder;
    CurlFetch m_fetch{[] {
        FetchLimits limits;
        limits.bytes = 3'000'000;
        return limits;
    }()};
};

} // namespace

TEST_F(CurlFetchFile, fetch_answersTheBytes_whenTheFileIsPlain)
{
    write("plain", QByteArray("a\0b\xff", 4));
    write("empty", "");
    write("a b\xc3\xbc%20#.html", "odd name");
    EXPECT_EQ(bytesAt(m_fetch, url("plain")), std::string("a\0b\xff", 4));
    EXPECT_EQ(bytesAt(m_fetch, url("empty")), "");
    EXPECT_EQ(bytesAt(m_fetch, url("a b\xc3\xbc%20#.html")), "odd name");
}

TEST_F(CurlFetchFile, fetch_followsALink_toAPlainFile)
{
    write("plain", "text");
    ASSERT_TRUE(QFile::link(path("plain"), path("link")));
    EXPECT_EQ(bytesAt(m_fetch, url("link")), "text");
}

TEST_F(CurlFetchFile, fetch_takesAFileOfTheLimit_andNothingLarger)
{
    write("full", QByteArray(3'000'000, 'x'));
    write("more", QByteArray(3'000'001, 'x'));
    EXPECT_EQ(bytesAt(m_fetch, url("full")), std::string(3'000'000, 'x'));
    EXPECT_NE(errorAt(m_fetch, url("more")).find("larger than 3000000 bytes"), std::string::npos);
    EXPECT_EQ(faultAt(m_fetch, url("more")), FetchFault::Kind::OverLimit);
    EXPECT_EQ(faultAt(m_fetch, url("missing")), FetchFault::Kind::Unreadable);
}

TEST_F(CurlFetchFile, fetch_fails_whenThereIsNoSuchFile)
{
    EXPECT_NE(errorAt(m_fetch, url("missing")).find("No such file"), std::string::npos);
    EXPECT_FALSE(bytesAt(m_fetch, "file://"));
    EXPECT_FALSE(bytesAt(m_fetch, url("plain%00x")));
}

TEST_F(CurlFetchFile, fetch_failsAtOnce_whenTheFileIsNotPlain)
{
    ASSERT_EQ(mkfifo(QFile::encodeName(path("fifo")).constData(), 0600), 0);
    EXPECT_NE(errorAt(m_fetch, url("fifo")).find("no plain file"), std::string::npos);
    EXPECT_NE(errorAt(m_fetch, url("")).find("no plain file"), std::string::npos);
    EXPECT_NE(errorAt(m_fetch, "file:///dev/zero").find("no plain file"), std::string::npos);
}

TEST_F(CurlFetchFile, fetch_readsNoOtherMachine_thanThisOne)
{
    write("plain", "text");
    const std::string path = url("plain").substr(std::string("file://").size());
    EXPECT_EQ(bytesAt(m_fetch, "file://localhost" + path), "text");
    EXPECT_FALSE(bytesAt(m_fetch, "file://other" + path));
}

TEST_F(CurlFetchFile, fetch_endsAnEndlessFile_atTheLimit)
{
    // What the kernel makes up says nothing of its size.
    FetchLimits limits;
    limits.bytes = 10;
    CurlFetch fetch(limits);
    EXPECT_NE(errorAt(fetch, "file:///proc/self/status").find("larger than 10 bytes"), std::string::npos);
}

} // namespace kestro
