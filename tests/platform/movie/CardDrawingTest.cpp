// How libmpv is had to draw with OpenGL, beyond what its pictures show.

#include "platform/movie/CardDrawing.h"

#include "platform/base/Log.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/CardOpenGL.h"
#include "platform/movie/MovieTest.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/MpvOptions.h"
#include "platform/movie/MpvPlayer.h"
#include "platform/movie/QTMovie.h"

#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

using namespace kestro;

namespace {

/// Has no function at all.
class EmptyOpenGL final : public CardOpenGL {
public:
    using CardOpenGL::CardOpenGL;
    [[nodiscard]] void* function(const char* /*name*/) const override { return nullptr; }
};

/// Counts the fences that are there. One at a time.
class FencedOpenGL final : public CardOpenGL {
public:
    explicit FencedOpenGL(const std::shared_ptr<OpenGL>& openGL)
        : CardOpenGL(openGL)
    {
        openGL->makeCurrent();
        fences = 0;
        makeFence = reinterpret_cast<MakeFence>(openGL->function("glFenceSync"));
        deleteFence = reinterpret_cast<DeleteFence>(openGL->function("glDeleteSync"));
    }
    [[nodiscard]] void* function(const char* name) const override
    {
        if (std::strcmp(name, "glFenceSync") == 0) return reinterpret_cast<void*>(makeCounted);
        if (std::strcmp(name, "glDeleteSync") == 0) return reinterpret_cast<void*>(deleteCounted);
        return CardOpenGL::function(name);
    }
    [[nodiscard]] static int fencesThere() { return fences; }

private:
    using MakeFence = void* (*)(unsigned, unsigned);
    using DeleteFence = void (*)(void*);

    static void* makeCounted(unsigned condition, unsigned flags)
    {
        ++fences;
        return makeFence(condition, flags);
    }
    static void deleteCounted(void* fence)
    {
        if (fence) --fences;
        deleteFence(fence);
    }

    static inline int fences = 0;
    static inline MakeFence makeFence = nullptr;
    static inline DeleteFence deleteFence = nullptr;
};

} // namespace

static std::shared_ptr<QTMovie> openedWith(const std::shared_ptr<OpenGL>& openGL)
{
    MpvMovieLibrary library({.audioOutputs = "null"});
    library.setOpenGL(openGL);
    return settled(library.movieWithURL(testMovie("plain.mp4")));
}

TEST(CardDrawing, isDrawnInSoftwareAndSaysSo_whereTheOpenGLIsRefused)
{
    std::vector<QString> lines;
    const LogCapture capture([&lines](const QString& line) {
        if (line.contains("drawn in software")) lines.push_back(line);
    });
    const auto empty = std::make_shared<EmptyOpenGL>(testOpenGL());
    const auto movie = openedWith(empty);
    movie->play();
    EXPECT_FALSE(movie->layer().drawsWithOpenGL());
    EXPECT_EQ(lines.size(), 1U);
    EXPECT_FALSE(drawsMovies(*empty));
}

TEST(CardDrawing, drawsMovies_withTheOpenGLThatIsHere)
{
    EXPECT_TRUE(drawsMovies(*testOpenGL()));
}

TEST(CardDrawing, isScaledByTheCardItself)
{
    const MpvHandle::Options options = mpvOptions({});
    for (const char* scaler : {"scale", "dscale", "cscale"}) {
        const auto isScaler = [scaler](const auto& option) { return QByteArrayView(option.first) == scaler; };
        const auto found = std::ranges::find_if(options, isScaler);
        ASSERT_NE(found, options.end()) << scaler;
        EXPECT_EQ(found->second, "bilinear") << scaler;
    }
}

TEST(CardDrawing, leavesNoFenceBehindForEachFrame)
{
    const auto fenced = std::make_shared<FencedOpenGL>(testOpenGL());
    const auto movie = openedWith(fenced);
    movie->play();
    ASSERT_TRUE(movie->layer().drawsWithOpenGL());
    std::vector<int> numbers;
    ASSERT_TRUE(watch(*movie, numbers, [&numbers] { return numbers.size() > 20; }));
    EXPECT_LT(FencedOpenGL::fencesThere(), 5);
}
