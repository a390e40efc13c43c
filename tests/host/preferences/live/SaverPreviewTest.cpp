#include "host/preferences/live/SaverPreview.h"

#include "host/preferences/live/LiveTest.h"
#include "platform/display/desktop/Notifications.h"
#include "widgets/SurfaceWidget.h"

namespace kestro {

namespace {

class SaverPreviewTest : public LiveTest {
protected:
    SaverPreviewTest()
    {
        preview.resize(160, 90);
        preview.show();
    }

    SaverPreview preview{views(), nullptr, services};
};

} // namespace

TEST_F(SaverPreviewTest, start_makesAViewOfTheWidgetsSizeAndRunsIt)
{
    ASSERT_TRUE(preview.start());
    EXPECT_EQ(frames, std::vector<Rect>({Rect{{0, 0}, {160, 90}}}));
    EXPECT_EQ(journal, QStringList{QStringLiteral("start")});
    timers.advance(0.25);
    EXPECT_EQ(journal.count(QStringLiteral("tick")), 2);
    EXPECT_TRUE(preview.isRunning());
}

TEST_F(SaverPreviewTest, saver_isSeenInTheWidget)
{
    ASSERT_TRUE(preview.start());
    preview.surface().screen().update();
    const QImage shown = preview.grab().toImage();
    EXPECT_EQ(shown.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_EQ(shown.pixelColor(159, 89), QColor(Qt::red));
}

TEST_F(SaverPreviewTest, widget_tellsAScreenReaderWhatItIs)
{
    EXPECT_EQ(preview.accessibleName(), QStringLiteral("Preview"));
    EXPECT_EQ(preview.surface().accessibleName(), QStringLiteral("Preview"));
}

TEST_F(SaverPreviewTest, view_isFitted_whenTheWidgetIsResized)
{
    ASSERT_TRUE(preview.start());
    preview.resize(200, 100);
    EXPECT_EQ(saver->frame(), (Rect{{0, 0}, {200, 100}}));
}

TEST_F(SaverPreviewTest, start_fails_whenNoViewCanBeMade)
{
    SaverPreview none([](const Rect&, Desktop&) { return nullptr; }, nullptr, services);
    EXPECT_FALSE(none.start());
    EXPECT_FALSE(none.isRunning());
    EXPECT_EQ(none.options(), nullptr);
}

TEST_F(SaverPreviewTest, saver_goesOnAsItWas_whenNothingHoldsItAnyMore)
{
    ASSERT_TRUE(preview.start());
    preview.setPaused(Preview::OtherRuns, true);
    preview.setPaused(Preview::Unseen, true);
    EXPECT_FALSE(preview.isRunning());
    preview.setPaused(Preview::OtherRuns, false);
    EXPECT_FALSE(preview.isRunning());
    journal.clear();
    timers.advance(1);
    EXPECT_EQ(journal, QStringList());
    preview.setPaused(Preview::Unseen, false);
    EXPECT_TRUE(preview.isRunning());
    EXPECT_EQ(journal, QStringList{QStringLiteral("go on")});
    EXPECT_EQ(frames.size(), 1U);
    timers.advance(0.1);
    EXPECT_EQ(journal.back(), QStringLiteral("tick"));
}

TEST_F(SaverPreviewTest, saver_waits_whenPausedBeforeItStarts)
{
    preview.setPaused(Preview::OtherRuns, true);
    ASSERT_TRUE(preview.start());
    EXPECT_EQ(journal, QStringList());
    preview.setPaused(Preview::OtherRuns, false);
    EXPECT_EQ(journal, QStringList{QStringLiteral("start")});
}

TEST_F(SaverPreviewTest, end_stopsTheSaverForGood_andTellsSo)
{
    ASSERT_TRUE(preview.start());
    int told = 0;
    preview.surface().desktop().notifications().addObserver(this, Notice::ApplicationWillTerminate, nullptr,
                                                            [&told] { ++told; });
    preview.end();
    preview.end();
    EXPECT_EQ(told, 1);
    EXPECT_EQ(journal.count(QStringLiteral("stop")), 1);
    preview.setPaused(Preview::OtherRuns, false);
    EXPECT_FALSE(preview.isRunning());
}

TEST_F(SaverPreviewTest, saver_isHeld_whenPaused)
{
    ASSERT_TRUE(preview.start());
    preview.setPaused(Preview::OtherRuns, true);
    EXPECT_EQ(journal, QStringList({QStringLiteral("start"), QStringLiteral("rest 1")}));
}

TEST_F(SaverPreviewTest, options_areTheSavers)
{
    EXPECT_EQ(preview.options(), nullptr);
    ASSERT_TRUE(preview.start());
    EXPECT_EQ(preview.options(), saver.get());
}

TEST_F(SaverPreviewTest, saver_runsWithoutOptions_whenItGivesItsHostNothing)
{
    SaverPreview plain(
        [](const Rect& frame, Desktop&) { return std::make_shared<ScreenSaverView>(frame, true); }, nullptr,
        services);
    ASSERT_TRUE(plain.start());
    EXPECT_TRUE(plain.isRunning());
    EXPECT_EQ(plain.options(), nullptr);
    plain.setPaused(Preview::OtherRuns, true);
    EXPECT_FALSE(plain.isRunning());
}

TEST_F(SaverPreviewTest, view_goesBeforeItsDesktop)
{
    std::weak_ptr<ScreenSaverView> held;
    {
        SaverPreview other(views(), nullptr, services);
        ASSERT_TRUE(other.start());
        held = saver;
        saver.reset();
    }
    EXPECT_TRUE(held.expired());
    EXPECT_EQ(journal.count(QStringLiteral("stop")), 1);
}

} // namespace kestro
