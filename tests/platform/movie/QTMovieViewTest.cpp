#include "platform/movie/QTMovieView.h"

#include "platform/base/Clock.h"
#include "platform/movie/MemoryMovie.h"
#include "platform/movie/NSMovie.h"

#include <gtest/gtest.h>

using namespace kestro;

namespace {

class OlderView final : public NSMovieView {
public:
    void setLoopMode(int) override {}
    void showControllerAdjustingSize(bool, bool) override {}
    [[nodiscard]] bool isPlaying() const override { return false; }
    [[nodiscard]] Size sizeForMagnification(float) const override { return {}; }
};

} // namespace

static std::shared_ptr<MemoryMovie> someMovie(const Clock& clock)
{
    return std::make_shared<MemoryMovie>(QUrl(QStringLiteral("file:///m.mov")), MemoryMovieDescription{},
                                         clock);
}

TEST(QTMovieView, showsTheMoviesLayer_untilAnotherIsSet)
{
    const ManualClock clock;
    const auto movie = someMovie(clock);
    QTMovieView view({{0, 0}, {100, 50}});
    view.setMovie(movie);
    EXPECT_EQ(view.movie(), movie);
    EXPECT_EQ(view.layer(), &movie->layer());
    view.setMovie(nullptr);
    EXPECT_EQ(view.layer(), nullptr);
    EXPECT_EQ(movie.use_count(), 1);
}

TEST(QTMovieView, playsAndPausesTheMovie)
{
    const ManualClock clock;
    const auto movie = someMovie(clock);
    QTMovieView view({{0, 0}, {100, 50}});
    view.play(&view);
    view.setMovie(movie);
    view.play(&view);
    EXPECT_EQ(movie->rate(), 1);
    view.pause(&view);
    EXPECT_EQ(movie->rate(), 0);
}

TEST(QTMovieView, isOfTheOlderGeneration_onlyWhenThatPartIsHandedIn)
{
    const QTMovieView newer({{0, 0}, {100, 50}});
    EXPECT_EQ(newer.asNSMovieView(), nullptr);
    auto part = std::make_unique<OlderView>();
    const NSMovieView* const expected = part.get();
    const QTMovieView older({{0, 0}, {100, 50}}, std::move(part));
    EXPECT_EQ(older.asNSMovieView(), expected);
}

TEST(QTMovieView, occupiesItsBounds_whereverItLies)
{
    const QTMovieView view({{30, 40}, {100, 50}});
    EXPECT_EQ(view.movieBounds(), (Rect{{0, 0}, {100, 50}}));
}

TEST(NSMovie, carriesItsMovie)
{
    const ManualClock clock;
    const auto movie = someMovie(clock);
    EXPECT_EQ(NSMovie(movie).movie(), movie);
}
