#include "platform/display/gl/RendererChoice.h"

#include "platform/base/Log.h"
#include "platform/base/ScopedEnvironment.h"
#include "platform/display/gl/OpenGLDevice.h"
#include "platform/display/scene/Renderer.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <ostream>

namespace kestro {

namespace {

/// Stands for a context that was made.
class FakeOpenGL final : public OpenGL {
public:
    explicit FakeOpenGL(bool isHardware)
        : m_isHardware(isHardware)
    {
    }
    [[nodiscard]] bool isHardware() const override { return m_isHardware; }
    [[nodiscard]] bool isLost() const override { return false; }
    bool makeCurrent() override { return true; }
    [[nodiscard]] void* function(const char*) const override { return nullptr; }
    [[nodiscard]] DisplayConnection display() const override { return {}; }
    bool renderToMemory(const PixelTarget&, const Draw&) override { return false; }
    void prepare(QWindow&) override {}
    [[nodiscard]] std::unique_ptr<Renderer> makeRenderer(Surface&) override { return nullptr; }

private:
    bool m_isHardware;
};

enum class Context { None, Software, Hardware };

struct Case {
    const char* name;
    RendererWish wish;
    bool hasDevice;
    Context context;
    bool isTried; ///< whether a context is even made
    bool isUsed;
    int lines; ///< that are logged
};

std::ostream& operator<<(std::ostream& stream, const Case& each)
{
    return stream << each.name;
}

class RendererChoices : public testing::TestWithParam<Case> {};

QStringList linesWhile(const std::function<void()>& act)
{
    QStringList lines;
    const LogCapture capture([&lines](const QString& line) { lines += line; });
    act();
    return lines;
}

} // namespace

TEST_P(RendererChoices, followWishAndMachine)
{
    const Case& given = GetParam();
    bool isTried = false;
    const OpenGLProbe probe{[&] { return given.hasDevice; },
                            [&]() -> Result<std::shared_ptr<OpenGL>> {
                                isTried = true;
                                if (given.context == Context::None) return Error{QStringLiteral("no luck")};
                                return std::shared_ptr<OpenGL>(
                                    std::make_shared<FakeOpenGL>(given.context == Context::Hardware));
                            }};
    std::shared_ptr<OpenGL> chosen;
    const QStringList lines = linesWhile([&] { chosen = chooseOpenGL(given.wish, probe); });
    EXPECT_EQ(isTried, given.isTried);
    EXPECT_EQ(chosen != nullptr, given.isUsed);
    EXPECT_EQ(lines.size(), given.lines);
    for (const QString& line : lines)
        EXPECT_TRUE(line.contains(QStringLiteral("no luck: drawing in software"))) << qPrintable(line);
}

INSTANTIATE_TEST_SUITE_P(
    Table, RendererChoices,
    testing::Values(
        Case{"noWish_noCard", RendererWish::None, false, Context::Hardware, false, false, 0},
        Case{"noWish_card", RendererWish::None, true, Context::Hardware, true, true, 0},
        Case{"noWish_cardWithoutDriver", RendererWish::None, true, Context::Software, true, false, 0},
        Case{"noWish_cardWithoutContext", RendererWish::None, true, Context::None, true, false, 1},
        Case{"software_card", RendererWish::Software, true, Context::Hardware, false, false, 0},
        Case{"opengl_card", RendererWish::OpenGL, true, Context::Hardware, true, true, 0},
        Case{"opengl_noCard", RendererWish::OpenGL, false, Context::Software, true, true, 0},
        Case{"opengl_noContext", RendererWish::OpenGL, false, Context::None, true, false, 1}),
    [](const auto& each) { return std::string(each.param.name); });

TEST(RendererChoice, rendererWish_isWhatTheEnvironmentSays)
{
    const std::vector<std::pair<const char*, RendererWish>> table{
        {"", RendererWish::None}, {"software", RendererWish::Software}, {"opengl", RendererWish::OpenGL}};
    for (const auto& [value, wish] : table) {
        const ScopedEnvironment environment("KESTRO_RENDERER", value);
        const QStringList lines = linesWhile([wanted = wish] { EXPECT_EQ(rendererWish(), wanted); });
        EXPECT_TRUE(lines.isEmpty()) << value;
    }
}

TEST(RendererChoice, rendererWish_namesTheTwoValues_whenItIsNeither)
{
    const ScopedEnvironment environment("KESTRO_RENDERER", "vulkan");
    const QStringList lines = linesWhile([] { EXPECT_EQ(rendererWish(), RendererWish::Software); });
    ASSERT_EQ(lines.size(), 1);
    for (const char* part : {"software", "opengl", "vulkan"})
        EXPECT_TRUE(lines.front().contains(QLatin1String(part))) << part;
}

TEST(RendererChoice, warnOfOpenGLInGivenWindow_saysThatItDrawsInSoftware_whenOpenglIsWanted)
{
    const ScopedEnvironment environment("KESTRO_RENDERER", "opengl");
    const QStringList lines = linesWhile([] { warnOfOpenGLInGivenWindow(); });
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.front().contains(QStringLiteral("in software")));
}

TEST(RendererChoice, chooseOpenGLOffScreen_drawsInSoftware_unlessOpenglIsWanted)
{
    for (const char* wish : {"", "software"}) {
        const ScopedEnvironment environment("KESTRO_RENDERER", wish);
        EXPECT_EQ(chooseOpenGLOffScreen(), nullptr) << wish;
    }
}

TEST(RendererChoice, chooseOpenGLOffScreen_saysSoInOneLine_whereThereIsNoDisplay)
{
    // The platform of these tests has OpenGL through an X server only.
    const ScopedEnvironment display("DISPLAY", "");
    const ScopedEnvironment environment("KESTRO_RENDERER", "opengl");
    const QStringList lines = linesWhile([] { EXPECT_EQ(chooseOpenGLOffScreen(), nullptr); });
    ASSERT_EQ(lines.size(), 1);
    EXPECT_TRUE(lines.front().contains(QStringLiteral("drawing in software")));
}

TEST(RendererChoice, isSoftwareOpenGL_knowsTheDriversThatDrawOnTheProcessor)
{
    for (const char* name : {"llvmpipe (LLVM 15.0.6, 256 bits)", "softpipe", "Gallium swrast",
                             "Software Rasterizer", "LLVMPIPE"})
        EXPECT_TRUE(isSoftwareOpenGL(name)) << name;
    for (const char* name : {"Mesa Intel(R) UHD Graphics 620 (KBL GT2)", "NVIDIA GeForce RTX 3060/PCIe/SSE2",
                             "AMD Radeon RX 6600 (navi23, LLVM 15.0.6, DRM 3.49)", "V3D 4.2"})
        EXPECT_FALSE(isSoftwareOpenGL(name)) << name;
}

TEST(RendererChoice, hasGraphicsDevice_looksForTheDevicesOfDrivers)
{
    for (const char* device : {"dri/renderD128", "nvidia0"}) {
        const QTemporaryDir folder;
        ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("dri")));
        ASSERT_TRUE(QFile(folder.filePath(QStringLiteral("dri/card0"))).open(QIODevice::WriteOnly));
        EXPECT_FALSE(hasGraphicsDevice(folder.path()));
        ASSERT_TRUE(QFile(folder.filePath(QLatin1String(device))).open(QIODevice::WriteOnly));
        EXPECT_TRUE(hasGraphicsDevice(folder.path())) << device;
    }
    EXPECT_FALSE(hasGraphicsDevice(QStringLiteral("/nowhere")));
}

} // namespace kestro
