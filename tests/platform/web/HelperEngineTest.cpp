#include "platform/web/HelperEngineTest.h"

#include <csignal>
#include <unistd.h>

namespace kestro {

namespace {

TEST_F(HelperEngineTest, isAvailable_isFalseAndSaysWhyOnce_withoutAHelper)
{
    settings.program = QStringLiteral("/nowhere/kestro-web");
    HelperEngine engine(settings);
    EXPECT_FALSE(engine.isAvailable());
    EXPECT_FALSE(engine.isAvailable());
    EXPECT_EQ(logged("No web content: /nowhere/kestro-web is not there"), 1);
}

TEST_F(HelperEngineTest, isAvailable_isFalse_withoutThePlayer)
{
    settings.needed = QStringLiteral("/nowhere/ruffle.js");
    HelperEngine engine(settings);
    EXPECT_FALSE(engine.isAvailable());
}

TEST_F(HelperEngineTest, isAvailable_isFalseForRootAlone_withASandbox)
{
    qunsetenv("QTWEBENGINE_DISABLE_SANDBOX");
    HelperEngine engine(settings);
    EXPECT_EQ(engine.isAvailable(), geteuid() != 0);
}

TEST_F(HelperEngineTest, view_showsWhatTheHelperPaints_overItsBoundsAlone)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "paint:ff0000");
    EXPECT_TRUE(becomes(red));
    EXPECT_EQ(colourAt(39, 59), red);
    EXPECT_NE(colourAt(40, 10), red);
}

TEST_F(HelperEngineTest, view_startsNoHelper_beforeItHasAnAddress)
{
    HelperEngine engine(settings);
    const auto view = engine.makeWebView({{0, 0}, {20, 30}});
    EXPECT_FALSE(engine.isRunning());
    view->loadRequest(QUrl(QStringLiteral("paint:ff0000")));
    EXPECT_TRUE(engine.isRunning());
}

TEST_F(HelperEngineTest, view_isPaintedAtItsNewSize_afterAResize)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "paint:0000ff");
    ASSERT_TRUE(becomes(blue));
    view->setFrame({{0, 0}, {40, 30}});
    EXPECT_TRUE(waitUntil([&] { return colourAt(79, 59) == blue; }));
}

TEST_F(HelperEngineTest, view_givesASlotBack_onceItShowsTheNextPicture)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "pair:");
    EXPECT_TRUE(becomes(green)); // painted in the slot that was given back
}

TEST_F(HelperEngineTest, view_isMutedUntilToldOtherwise)
{
    HelperEngine engine(settings);
    const auto muted = show(engine, "sound:");
    ASSERT_TRUE(becomes(red));
    muted->stopLoading();
    const auto loud = show(engine, "sound:");
    loud->setMuted(false);
    EXPECT_TRUE(becomes(blue));
}

TEST_F(HelperEngineTest, loadMovie_asksForAnSwfAlone_loadRequestForAnything)
{
    HelperEngine engine(settings);
    auto view = engine.makeWebView({{0, 0}, {20, 30}});
    ground.addSubview(*view);
    view->loadMovie(QUrl(QStringLiteral("kind:")));
    EXPECT_TRUE(becomes(red));
    view->loadRequest(QUrl(QStringLiteral("kind:")));
    EXPECT_TRUE(becomes(blue));
}

TEST_F(HelperEngineTest, view_isBlack_onceStopped)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "paint:ff0000");
    ASSERT_TRUE(becomes(red));
    view->stopLoading();
    EXPECT_TRUE(becomes(black));
}

TEST_F(HelperEngineTest, views_shareOneHelper)
{
    HelperEngine engine(settings);
    const auto one = show(engine, "paint:ff0000");
    const auto other = show(engine, "paint:0000ff");
    other->setFrame({{20, 0}, {20, 30}});
    EXPECT_TRUE(waitUntil([&] { return colourAt(10, 10) == red && colourAt(50, 10) == blue; }));
}

TEST_F(HelperEngineTest, endUnused_endsTheHelper_onceThereIsNoPage)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "paint:ff0000");
    ASSERT_TRUE(becomes(red));
    engine.endUnused();
    EXPECT_TRUE(engine.isRunning());
    view->stopLoading();
    engine.endUnused();
    EXPECT_FALSE(engine.isRunning());
    const auto other = show(engine, "paint:0000ff");
    EXPECT_TRUE(becomes(blue));
}

TEST_F(HelperEngineTest, note_isLoggedWithTheAddress)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "note:bad");
    EXPECT_TRUE(waitUntil([&] { return logged("Web content: note:bad: bad") == 1; }));
}

TEST_F(HelperEngineTest, crash_isLogged_andTheHelperStartedThreeTimesMore)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "crash:");
    EXPECT_TRUE(waitUntil([&] { return logged("all stays black") == 1; }));
    EXPECT_EQ(logged("the helper ended; it is started again"), 3);
    EXPECT_FALSE(engine.isRunning());
    EXPECT_FALSE(engine.isAvailable());
    EXPECT_TRUE(becomes(black));
}

TEST_F(HelperEngineTest, otherPages_comeBack_afterACrash)
{
    HelperEngine engine(settings);
    const auto view = show(engine, "paint:ff0000");
    ASSERT_TRUE(becomes(red));
    auto crashing = engine.makeWebView({{0, 0}, {1, 1}});
    crashing->loadRequest(QUrl(QStringLiteral("crash:")));
    ASSERT_TRUE(waitUntil([&] { return logged("it is started again") == 1; }));
    crashing.reset();
    EXPECT_TRUE(becomes(red));
}

TEST_F(HelperEngineTest, helperThatDoesNotAnswer_isEnded_andItsPagesBlack)
{
    settings.mostRestarts = 0;
    HelperEngine engine(settings);
    const auto view = show(engine, "hang:");
    EXPECT_TRUE(waitUntil([&] { return logged("the helper does not answer; all stays black") == 1; }));
    EXPECT_TRUE(becomes(black));
    EXPECT_FALSE(engine.isRunning());
}

TEST_F(HelperEngineTest, helperThatNeverStarts_leavesTheViewBlack)
{
    settings.arguments = {QStringLiteral("crash")};
    HelperEngine engine(settings);
    const auto view = show(engine, "paint:ff0000");
    EXPECT_TRUE(waitUntil([&] { return logged("all stays black") == 1; }));
    EXPECT_TRUE(becomes(black));
}

TEST_F(HelperEngineTest, addressTooLongToTell_isLogged_andBlack)
{
    HelperEngine engine(settings);
    const QByteArray address = "paint:" + QByteArray(20000, 'f');
    const auto view = show(engine, address.constData());
    EXPECT_TRUE(waitUntil([&] { return logged("cannot be shown") == 1; }));
    EXPECT_TRUE(becomes(black));
}

} // namespace

} // namespace kestro
