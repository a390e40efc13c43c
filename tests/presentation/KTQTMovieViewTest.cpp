#include "presentation/KTQTMovieView.h"

#include "platform/movie/NSMovie.h"
#include "presentation/PresentationTest.h"

namespace kestro {

namespace {

/// What an older movie view was told, and what it answers.
struct OlderState {
    int loopMode = -1;
    bool controllerShown = false;
    bool adjusted = false;
    bool playing = false;
    float magnification = 0;
};

class OlderView final : public NSMovieView {
public:
    explicit OlderView(OlderState& state)
        : m_state(state)
    {
    }
    void setLoopMode(int mode) override { m_state.loopMode = mode; }
    void showControllerAdjustingSize(bool show, bool adjustSize) override
    {
        m_state.controllerShown = show;
        m_state.adjusted = adjustSize;
    }
    bool isPlaying() const override { return m_state.playing; }
    Size sizeForMagnification(float magnification) const override
    {
        m_state.magnification = magnification;
        return {11, 22};
    }

private:
    OlderState& m_state;
};

class KTQTMovieViewTest : public PresentationTest {
protected:
    KTQTMovieView view{{{0, 0}, {320, 180}}};
    OlderState older;
    KTQTMovieView olderView{{{0, 0}, {320, 180}}, std::make_unique<OlderView>(older)};
};

} // namespace

TEST_F(KTQTMovieViewTest, setLoopMode_setsOneAttributeAndLeavesTheOther)
{
    const auto shown = movie();
    view.setMovie(shown);
    view.setLoopMode(LoopMode::Looping);
    EXPECT_TRUE(shown->attribute(MovieAttribute::Loops));
    EXPECT_FALSE(shown->attribute(MovieAttribute::LoopsBackAndForth));
    view.setLoopMode(LoopMode::BackAndForth);
    EXPECT_TRUE(shown->attribute(MovieAttribute::Loops));
    EXPECT_TRUE(shown->attribute(MovieAttribute::LoopsBackAndForth));
}

TEST_F(KTQTMovieViewTest, setLoopMode_clearsBothAttributes_forAnyOtherNumber)
{
    for (const int mode : {0, 3, -1}) {
        const auto shown = movie();
        view.setMovie(shown);
        view.setLoopMode(1);
        view.setLoopMode(2);
        view.setLoopMode(mode);
        EXPECT_FALSE(shown->attribute(MovieAttribute::Loops)) << mode;
        EXPECT_FALSE(shown->attribute(MovieAttribute::LoopsBackAndForth)) << mode;
    }
}

TEST_F(KTQTMovieViewTest, setLoopMode_isHandedOn_inTheOlderGeneration)
{
    const auto shown = movie();
    olderView.setMovie(shown);
    olderView.setLoopMode(1);
    EXPECT_EQ(older.loopMode, 1);
    EXPECT_FALSE(shown->attribute(MovieAttribute::Loops));
}

TEST_F(KTQTMovieViewTest, showController_hidesItWhateverIsAsked)
{
    view.setControllerVisible(true);
    view.showControllerAdjustingSize(true, true);
    EXPECT_FALSE(view.isControllerVisible());
}

TEST_F(KTQTMovieViewTest, showController_isHandedOn_inTheOlderGeneration)
{
    olderView.setControllerVisible(true);
    olderView.showControllerAdjustingSize(true, true);
    EXPECT_TRUE(older.controllerShown && older.adjusted);
    EXPECT_TRUE(olderView.isControllerVisible());
}

TEST_F(KTQTMovieViewTest, keepPlaying_startsAMovieThatWasJustSet)
{
    const auto shown = movie();
    view.setMovie(shown);
    EXPECT_EQ(shown->rate(), 0.0F);
    EXPECT_TRUE(view.isPlaying());
    view.keepPlaying();
    EXPECT_TRUE(view.isPlaying());
    EXPECT_EQ(shown->rate(), 1.0F);
}

TEST_F(KTQTMovieViewTest, isPlaying_changesNothing)
{
    const auto shown = movie({.seconds = 2});
    view.setMovie(shown);
    EXPECT_TRUE(view.isPlaying());
    EXPECT_EQ(shown->rate(), 0.0F);
    view.start(nullptr);
    EXPECT_TRUE(view.isPlaying()); // nor does it take note that the movie runs
    view.stop(nullptr);
    EXPECT_TRUE(view.isPlaying());
}

TEST_F(KTQTMovieViewTest, isPlaying_isFalseOnceTheMovieRanAndStands)
{
    view.setMovie(movie({.seconds = 2}));
    view.start(nullptr);
    view.keepPlaying();
    EXPECT_TRUE(view.isPlaying());
    clock.advance(2.5);
    view.keepPlaying();
    EXPECT_FALSE(view.isPlaying());
    view.keepPlaying();
    EXPECT_FALSE(view.isPlaying());
}

TEST_F(KTQTMovieViewTest, isPlaying_isTrueAgain_whenAnotherMovieIsSet)
{
    view.setMovie(movie({.seconds = 2}));
    view.keepPlaying();
    clock.advance(2.5);
    view.setMovie(movie());
    EXPECT_TRUE(view.isPlaying());
    view.keepPlaying();
    view.stop(nullptr);
    EXPECT_FALSE(view.isPlaying());
}

TEST_F(KTQTMovieViewTest, keepPlaying_startsAMovieThatWasStopped_onlyBeforeItWasSeenRunning)
{
    const auto shown = movie();
    view.setMovie(shown);
    view.start(nullptr);
    view.stop(nullptr);
    view.keepPlaying();
    EXPECT_EQ(shown->rate(), 1.0F);
    view.stop(nullptr);
    view.keepPlaying();
    EXPECT_EQ(shown->rate(), 0.0F);
}

TEST_F(KTQTMovieViewTest, keepPlaying_startsOnce_whatIsOverBeforeTheNextCall)
{
    const auto shown = movie({.seconds = 0.02});
    view.setMovie(shown);
    view.keepPlaying();
    clock.advance(0.05);
    EXPECT_FALSE(view.isPlaying());
    view.keepPlaying();
    EXPECT_EQ(shown->rate(), 0.0F);
}

TEST_F(KTQTMovieViewTest, keepPlaying_doesNotStart_whileTheDurationIsUnknown)
{
    const auto shown = movie({.loadsAfter = 2});
    view.setMovie(shown);
    view.keepPlaying();
    clock.advance(1.9);
    view.keepPlaying();
    EXPECT_TRUE(view.isPlaying());
    EXPECT_EQ(shown->rate(), 0.0F);
    clock.advance(0.2);
    EXPECT_EQ(shown->rate(), 0.0F);
    view.keepPlaying();
    EXPECT_EQ(shown->rate(), 1.0F);
}

TEST_F(KTQTMovieViewTest, isPlaying_countsAsPlaying_onceNothingWasSet)
{
    EXPECT_FALSE(view.isPlaying());
    view.setMovie(nullptr);
    EXPECT_TRUE(view.isPlaying());
}

TEST_F(KTQTMovieViewTest, isPlaying_isTheOlderViewsAnswer_inTheOlderGeneration)
{
    const auto shown = movie();
    olderView.setMovie(shown);
    EXPECT_FALSE(olderView.isPlaying());
    olderView.keepPlaying();
    EXPECT_EQ(shown->rate(), 0.0F);
    older.playing = true;
    EXPECT_TRUE(olderView.isPlaying());
}

TEST_F(KTQTMovieViewTest, setMovie_showsTheMovieInsideAnNSMovie)
{
    const auto shown = movie();
    for (auto* one : {&view, &olderView}) {
        one->setMovie(NSMovie(shown));
        EXPECT_EQ(one->movie(), shown);
    }
}

TEST_F(KTQTMovieViewTest, sizeForMagnification_isTheNaturalSizeWhateverTheMagnification)
{
    view.setMovie(movie({.naturalSize = {400, 300}}));
    EXPECT_EQ(view.sizeForMagnification(1.0F), (Size{400, 300}));
    EXPECT_EQ(view.sizeForMagnification(3.0F), (Size{400, 300}));
    olderView.setMovie(movie());
    EXPECT_EQ(olderView.sizeForMagnification(3.0F), (Size{11, 22}));
    EXPECT_EQ(older.magnification, 3.0F);
}

TEST_F(KTQTMovieViewTest, soundAndPlay_reachTheMovie_inBothGenerations)
{
    for (auto* one : {&view, &olderView}) {
        const auto shown = movie();
        one->setMovie(shown);
        one->setMuted(true);
        one->setVolume(0.25F);
        EXPECT_TRUE(shown->isMuted() && one->isMuted());
        EXPECT_EQ(shown->volume(), 0.25F);
        EXPECT_EQ(one->volume(), 0.25F);
        one->start(nullptr);
        clock.advance(1);
        EXPECT_EQ(shown->rate(), 1.0F);
        one->stop(nullptr);
        EXPECT_EQ(shown->rate(), 0.0F);
        EXPECT_EQ(shown->currentTime().timeValue, 600);
        EXPECT_EQ(one->movieRect(), (Rect{{0, 0}, {320, 180}}));
    }
}

TEST_F(KTQTMovieViewTest, everything_isLeftUndoneWithoutAMovie)
{
    view.setLoopMode(1);
    view.setMuted(true);
    view.setVolume(1);
    view.start(nullptr);
    view.stop(nullptr);
    EXPECT_FALSE(view.isMuted());
    EXPECT_EQ(view.volume(), 0.0F);
    EXPECT_EQ(view.sizeForMagnification(1), Size{});
}

} // namespace kestro
