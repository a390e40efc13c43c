#include "presentation/KTMovieView.h"

#include "presentation/KTQTMovieView.h"
#include "presentation/PresentationTest.h"

namespace kestro {

namespace {

class KTMovieViewTest : public PresentationTest {
protected:
    KTMovieView view{{{100, 50}, {640, 360}}, {desktop, &web}};
    const QUrl page{QStringLiteral("http://m/clip.swf")};

    View* inner() { return view.subviews().empty() ? nullptr : view.subviews().front(); }
};

} // namespace

TEST_F(KTMovieViewTest, setMovie_putsAMovieTwoPointsLowInTheView)
{
    const auto shown = movie();
    view.setMovie(shown);
    ASSERT_TRUE(inner());
    EXPECT_EQ(inner()->frame(), (Rect{{0, -2}, {640, 360}}));
    EXPECT_EQ(view.movie(), shown);
    EXPECT_EQ(view.movieRect(), (Rect{{0, 0}, {640, 360}}));
}

TEST_F(KTMovieViewTest, setMovie_loadsAnythingElseAsAPageOverTheWholeView)
{
    view.setMovie(page);
    ASSERT_TRUE(web.last);
    EXPECT_EQ(inner(), web.last);
    EXPECT_EQ(web.last->frame(), (Rect{{0, 0}, {640, 360}}));
    EXPECT_EQ(web.last->played, page);
    EXPECT_FALSE(view.movie());
    EXPECT_EQ(view.movieRect(), view.bounds());
}

TEST_F(KTMovieViewTest, setMovie_nothing_emptiesTheViewAndFreesTheMovie)
{
    auto shown = movie();
    const std::weak_ptr<MemoryMovie> watched = shown;
    view.setMovie({});
    EXPECT_EQ(inner(), nullptr);
    view.setMovie(std::exchange(shown, nullptr));
    view.setMovie({});
    EXPECT_EQ(inner(), nullptr);
    EXPECT_FALSE(view.movie());
    EXPECT_TRUE(watched.expired());
}

TEST_F(KTMovieViewTest, setMovie_keepsAReplacedPageAliveOutOfSight)
{
    view.setMovie(page);
    auto* old = web.last;
    view.setMovie(movie());
    EXPECT_NE(inner(), old);
    EXPECT_EQ(old->superview(), nullptr);
    EXPECT_EQ(old->played, page);
    EXPECT_TRUE(old->isStopped);
}

TEST_F(KTMovieViewTest, setMuted_isFollowedByAPage_fromItsStart)
{
    view.setMuted(false);
    view.setMovie(page);
    EXPECT_FALSE(web.last->isMuted);
    view.setMuted(true);
    EXPECT_TRUE(web.last->isMuted);
}

TEST_F(KTMovieViewTest, setMovie_showsNothing_forAPageWithoutAWebEngine)
{
    KTMovieView blind({{0, 0}, {64, 36}}, {desktop, nullptr});
    blind.setMovie(page);
    EXPECT_TRUE(blind.subviews().empty());
}

TEST_F(KTMovieViewTest, settings_givenBefore_holdForTheNextMovieAtItsStart)
{
    view.setLoopMode(LoopMode::Looping);
    view.setMuted(true);
    const auto shown = movie();
    view.setMovie(shown);
    view.start(nullptr);
    EXPECT_TRUE(shown->attribute(MovieAttribute::Loops));
    EXPECT_TRUE(shown->isMuted());
    EXPECT_EQ(shown->rate(), 1.0F);
    const auto next = movie();
    view.setMovie(next);
    view.start(nullptr);
    EXPECT_TRUE(next->attribute(MovieAttribute::Loops));
}

TEST_F(KTMovieViewTest, start_givesTheSettingsAgain)
{
    const auto shown = movie();
    view.setMovie(shown);
    view.setMuted(true);
    shown->setMuted(false);
    shown->setAttribute(MovieAttribute::Loops, true);
    view.start(nullptr);
    EXPECT_TRUE(shown->isMuted());
    EXPECT_FALSE(shown->attribute(MovieAttribute::Loops));
}

TEST_F(KTMovieViewTest, settings_reachTheMovieThatIsShown)
{
    const auto shown = movie();
    view.setMovie(shown);
    view.setVolume(0.5F);
    view.setMuted(true);
    view.setLoopMode(LoopMode::BackAndForth);
    EXPECT_EQ(shown->volume(), 0.5F);
    EXPECT_TRUE(shown->isMuted());
    EXPECT_TRUE(shown->attribute(MovieAttribute::LoopsBackAndForth));
    shown->setVolume(0.75F);
    EXPECT_EQ(view.volume(), 0.75F);
}

TEST_F(KTMovieViewTest, queries_answerTheStoredSettings_withoutAMovie)
{
    EXPECT_EQ(view.volume(), 0.0F);
    EXPECT_FALSE(view.isMuted());
    view.setVolume(0.5F);
    view.setMuted(true);
    EXPECT_EQ(view.volume(), 0.5F);
    EXPECT_TRUE(view.isMuted());
    view.setMovie(page);
    EXPECT_EQ(view.volume(), 0.5F);
    EXPECT_TRUE(view.isMuted());
}

TEST_F(KTMovieViewTest, isPlaying_isTrueWhileEmptyAndForAPage)
{
    EXPECT_TRUE(view.isPlaying());
    view.setMovie(page);
    EXPECT_TRUE(view.isPlaying());
    view.start(nullptr);
    view.stop(nullptr);
    view.keepPlaying();
    EXPECT_TRUE(view.isPlaying());
}

TEST_F(KTMovieViewTest, isPlaying_isFalseOnceAMovieEnded)
{
    view.setMovie(movie({.seconds = 1}));
    view.keepPlaying();
    EXPECT_TRUE(view.isPlaying());
    clock.advance(1.5);
    EXPECT_FALSE(view.isPlaying());
}

TEST_F(KTMovieViewTest, stop_keepsThePosition)
{
    const auto shown = movie();
    view.setMovie(shown);
    view.start(nullptr);
    clock.advance(2);
    view.stop(nullptr);
    clock.advance(2);
    EXPECT_EQ(shown->currentTime().timeValue, 1200);
}

TEST_F(KTMovieViewTest, letGo_keepsTheMovie_andStartTakesItInHand)
{
    const auto shown = movie();
    view.setMovie(std::static_pointer_cast<QTMovie>(shown));
    view.start(nullptr);
    clock.advance(2);
    view.letGo();
    EXPECT_FALSE(shown->isAtHand());
    EXPECT_EQ(view.movie(), shown);
    view.start(nullptr);
    EXPECT_TRUE(shown->isAtHand());
    EXPECT_EQ(shown->currentTime().timeValue, 1200);
}

TEST_F(KTMovieViewTest, letGo_endsAPage_andStartBeginsItAnew)
{
    view.setMovie(page);
    view.setMuted(false);
    auto* const before = web.last;
    view.letGo();
    EXPECT_TRUE(before->isStopped);
    EXPECT_TRUE(view.isPlaying());
    view.start(nullptr);
    ASSERT_NE(web.last, before);
    EXPECT_EQ(web.last->played, page);
    EXPECT_FALSE(web.last->isMuted);
    auto* const anew = web.last;
    view.start(nullptr);
    EXPECT_EQ(web.last, anew);
}

TEST_F(KTMovieViewTest, letGoPage_isForgotten_whenOtherContentComes)
{
    view.setMovie(page);
    auto* const first = web.last;
    view.letGo();
    view.setMovie(std::static_pointer_cast<QTMovie>(movie()));
    view.start(nullptr);
    EXPECT_EQ(web.last, first);
}

TEST_F(KTMovieViewTest, picture_isWhatTheMovieShows_asLargeAsAskedFor)
{
    EXPECT_TRUE(view.picture({64, 36}, 2).isNull());
    view.setMovie(std::static_pointer_cast<QTMovie>(movie({.colour = Qt::blue})));
    const Picture picture = view.picture({64, 36}, 2);
    EXPECT_EQ(picture.size, (Size{64, 36}));
    EXPECT_EQ(picture.image.size(), QSize(128, 72));
    EXPECT_EQ(picture.image.pixelColor(127, 71), QColor(Qt::blue));
}

TEST_F(KTMovieViewTest, sizeWithScale_isTheBoundsWhileEmpty)
{
    EXPECT_EQ(view.sizeWithScale(2), (Size{640, 360}));
}

TEST_F(KTMovieViewTest, sizeWithScale_isTheNaturalSizeOfAMovieWhateverTheScale)
{
    view.setMovie(movie({.naturalSize = {400, 300}}));
    EXPECT_EQ(view.sizeWithScale(2), (Size{400, 300}));
}

TEST_F(KTMovieViewTest, sizeWithScale_isAQuarterOfTheMainScreenTimesTheScale_forAPage)
{
    view.setMovie(page);
    EXPECT_EQ(view.sizeWithScale(2), (Size{960, 600}));
    EXPECT_EQ(view.sizeWithScale(1), (Size{480, 300}));
}

// In a preview the main screen is but a part of its monitor.
TEST_F(KTMovieViewTest, sizeWithScale_isAQuarterOfTheMonitor_forAPageInAPartOfOne)
{
    desktop.mainScreen()->setMonitorSize({1280, 720});
    view.setMovie(page);
    EXPECT_EQ(view.sizeWithScale(1), (Size{320, 180}));
}

TEST_F(KTMovieViewTest, setFrame_keepsTheContentAsLargeAsTheViewAndWhereItIs)
{
    view.setMovie(movie());
    view.setFrame({{5, 6}, {100, 80}});
    EXPECT_EQ(view.frame(), (Rect{{5, 6}, {100, 80}}));
    EXPECT_EQ(inner()->frame(), (Rect{{0, -2}, {100, 80}}));
    view.setFrameSize({50, 40});
    EXPECT_EQ(inner()->frame(), (Rect{{0, -2}, {50, 40}}));
    view.setMovie(page);
    view.setFrameSize({60, 70});
    EXPECT_EQ(inner()->frame(), (Rect{{0, 0}, {60, 70}}));
}

TEST_F(KTMovieViewTest, picture_isTheMovieOnBlackWithItsLowestRowsCut)
{
    Window window({{{0, 0}, {1920, 1200}}, desktop.mainScreen(), "host"});
    View ground({{0, 0}, {1920, 1200}});
    window.setBackgroundColor(Qt::blue);
    window.setContentView(&ground);
    window.orderFront();
    ground.addSubview(view);
    view.setMovie(movie({.colour = Qt::red}));
    view.start(nullptr);
    desktop.mainScreen()->update();
    const QImage& image = ImageDesktop::surfaceOf(*desktop.mainScreen()).image();
    const auto at = [&](int x, int y) { return image.pixelColor(x, 1199 - y); };
    EXPECT_EQ(at(100, 50), QColor(Qt::red));
    EXPECT_EQ(at(739, 407), QColor(Qt::red));
    EXPECT_EQ(at(400, 408), QColor(Qt::black));
    EXPECT_EQ(at(400, 409), QColor(Qt::black));
    EXPECT_EQ(at(400, 410), QColor(Qt::blue));
    EXPECT_EQ(at(400, 49), QColor(Qt::blue));
    EXPECT_EQ(at(99, 200), QColor(Qt::blue));
    window.setContentView(nullptr);
}

} // namespace kestro
