#include "platform/movie/MovieTest.h"

#include "platform/display/gl/OpenGL.h"
#include "platform/display/gl/RendererChoice.h"
#include "platform/display/view/Layer.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/movie/QTMovie.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

QUrl testMovie(const char* name)
{
    return QUrl::fromLocalFile(QStringLiteral(KESTRO_TEST_MOVIES "/") + QLatin1String(name));
}

namespace {

/// What the movies of all tests draw with, for as long as the tests run.
class OpenGLOfTests final : public testing::Environment {
public:
    void SetUp() override { openGL = chooseOpenGLOffScreen(); }
    void TearDown() override { openGL.reset(); }

    std::shared_ptr<OpenGL> openGL;
};

OpenGLOfTests& openGLOfTests()
{
    static auto& environment = *new OpenGLOfTests;
    return environment;
}

const auto* const registered = testing::AddGlobalTestEnvironment(&openGLOfTests());

} // namespace

std::shared_ptr<OpenGL> testOpenGL()
{
    return openGLOfTests().openGL;
}

std::shared_ptr<QTMovie> openMovie(const QUrl& url)
{
    MpvMovieLibrary library({.networkTimeout = 10, .audioOutputs = "null"});
    library.setOpenGL(testOpenGL());
    return settled(library.movieWithURL(url));
}

std::shared_ptr<QTMovie> settled(std::shared_ptr<QTMovie> movie)
{
    if (movie && !waitUntil([&movie] { return movie->state() != QTMovie::State::Loading; }))
        ADD_FAILURE() << "it loads for ever";
    return movie;
}

QImage drawn(QTMovie& movie, int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    const PixelTarget target{image.bits(), width, height, static_cast<int>(image.bytesPerLine())};
    movie.layer().willShow();
    if (!movie.layer().render(target)) return {};
    return image;
}

int numberIn(const QImage& picture)
{
    if (picture.isNull()) return -1;
    int number = 0;
    for (int bit = 0; bit < 8; ++bit) {
        const int x = (2 * bit + 1) * picture.width() / 16;
        const int grey = qGray(picture.pixel(x, picture.height() / 2));
        if (grey > 60 && grey < 190) return -1;
        number |= (grey > 128) << bit;
    }
    return number;
}

int threadCount()
{
    return static_cast<int>(threadsBeside({}).size());
}

QStringList threadsBeside(const QStringList& known)
{
    QStringList threads =
        QDir(QStringLiteral("/proc/self/task")).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    threads.removeIf([&known](const QString& thread) { return known.contains(thread); });
    return threads;
}

QStringList threadNames()
{
    QStringList names;
    const QDir threads(QStringLiteral("/proc/self/task"));
    for (const QString& thread : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile name(threads.filePath(thread + QStringLiteral("/comm")));
        if (name.open(QIODevice::ReadOnly)) names.append(QString::fromUtf8(name.readAll()).trimmed());
    }
    return names;
}

bool watch(QTMovie& movie, std::vector<int>& numbers, const std::function<bool()>& done)
{
    movie.layer().setPictureHandler([&movie, &numbers] {
        const int number = numberIn(drawn(movie));
        if (numbers.empty() || numbers.back() != number) numbers.push_back(number);
    });
    const bool came = waitUntil(done);
    movie.layer().setPictureHandler({});
    return came;
}

} // namespace kestro
