#include "platform/web/HelperEngineTest.h"
#include "support/LoopbackServer.h"

#include <QDir>

namespace kestro {

namespace {

/// A helper in foreign hands, on the other side of the line.
class HostileHelperTest : public HelperEngineTest {
protected:
    static qsizetype openFiles()
    {
        return QDir(QStringLiteral("/proc/self/fd"))
            .entryList(QDir::NoDotAndDotDot | QDir::AllEntries)
            .size();
    }

    static QString asking(const std::string& page, const std::string& wish)
    {
        return QString::fromStdString(page + "#" + wish);
    }
};

TEST_F(HostileHelperTest, flood_isEnded_withOneLineOfEachHelper)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "flood:");
    EXPECT_TRUE(waitUntil([&] { return logged("the helper says too much; all stays black") == 1; }));
    EXPECT_TRUE(becomes(black));
    EXPECT_EQ(logged("Web content: flood:"), 4); // one of each of four helpers
    EXPECT_EQ(logged("\x1b"), 0);
}

TEST_F(HostileHelperTest, lies_changeNothing)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "lie:");
    EXPECT_TRUE(becomes(green)); // painted when all lies are told
    EXPECT_EQ(lines, QStringList());
}

TEST_F(HostileHelperTest, rubble_isDropped)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "rubble:");
    EXPECT_TRUE(becomes(green));
    EXPECT_EQ(lines, QStringList());
}

TEST_F(HostileHelperTest, rubbleWithoutEnd_endsIt)
{
    settings.mostRestarts = 0;
    HelperEngine engine(settings);
    const auto view = show(engine, "endless:");
    EXPECT_TRUE(waitUntil([&] { return logged("the helper ended; all stays black") == 1; }));
    EXPECT_TRUE(becomes(black));
}

TEST_F(HostileHelperTest, descriptors_areAllClosed)
{
    HelperEngine engine(settings);
    const auto calm = show(engine, "paint:ff0000");
    ASSERT_TRUE(becomes(red));
    const qsizetype before = openFiles();
    const auto view = show(engine, "descriptors:");
    ASSERT_TRUE(becomes(green));
    EXPECT_LT(openFiles(), before + 20); // 1600 came; the other view has some of its own
}

TEST_F(HostileHelperTest, memoryBeyondTheBound_endsIt)
{
    settings.mostRestarts = 0;
    settings.most.bytes = 128LL * 1024 * 1024;
    HelperEngine engine(settings);
    const auto view = show(engine, "eat:");
    EXPECT_TRUE(waitUntil([&] { return logged("takes too much memory; all stays black") == 1; }));
    EXPECT_TRUE(becomes(black));
}

TEST_F(HostileHelperTest, memoryThatItHoldsOpenAlone_endsItToo)
{
    settings.mostRestarts = 0;
    settings.most.bytes = 128LL * 1024 * 1024;
    HelperEngine engine(settings);
    const auto view = show(engine, "hoard:");
    EXPECT_TRUE(waitUntil([&] { return logged("takes too much memory; all stays black") == 1; }));
}

TEST_F(HostileHelperTest, threadsBeyondTheBound_endIt)
{
    settings.mostRestarts = 0;
    settings.most.threads = 0;
    HelperEngine engine(settings);
    const auto view = show(engine, "paint:ff0000");
    EXPECT_TRUE(waitUntil([&] { return logged("starts too many threads; all stays black") == 1; }));
}

TEST_F(HostileHelperTest, processesBeyondTheBound_endIt)
{
    settings.mostRestarts = 0;
    settings.most.processes = 8;
    HelperEngine engine(settings);
    const auto view = show(engine, "breed:");
    EXPECT_TRUE(waitUntil([&] { return logged("starts too many processes; all stays black") == 1; }));
}

TEST_F(HostileHelperTest, page_getsWhatIsOnItsOwnSite)
{
    LoopbackServer site([](const auto&, const auto&) { return LoopbackServer::whole("there"); });
    HelperEngine engine(settings);
    const auto view = show(engine, asking(site.url("/a.swf"), site.url("/b?c")).toLatin1().constData());
    EXPECT_TRUE(becomes(green));
    EXPECT_EQ(site.requests(), std::vector<std::string>{"/b?c"});
}

TEST_F(HostileHelperTest, page_getsNothingOfAnotherSite)
{
    LoopbackServer other([](const auto&, const auto&) { return LoopbackServer::whole("there"); });
    LoopbackServer site([](const auto&, const auto&) { return LoopbackServer::whole("there"); });
    HelperEngine engine(settings);
    for (const std::string& wish : {other.url("/b"), std::string("file:///etc/passwd"),
                                    "http://localhost:" + std::to_string(site.port()) + "/b"}) {
        const auto view = show(engine, asking(site.url("/a.swf"), wish).toLatin1().constData());
        EXPECT_TRUE(becomes(blue)) << wish;
    }
    EXPECT_EQ(other.connections() + site.connections(), 0);
}

} // namespace

} // namespace kestro
