#include "engine/EngineTest.h"

#include "platform/display/surface/image/ImageSurface.h"
#include "platform/movie/QTMovie.h"
#include "presentation/MovieFrame.h"

#include <QCoreApplication>

#include <algorithm>

namespace kestro {

EngineTest::EngineTest()
    : m_capture([this](const QString& line) { log.push_back(line); })
{
    set("Ver", "5");
    setPlaylist({});
}

EngineTest::~EngineTest()
{
    for (auto& hosted : m_hosted)
        hosted.window->setContentView(nullptr);
}

void EngineTest::setPlaylist(const QStringList& names)
{
    QVariantList list;
    for (const auto& name : names)
        list.append(name.contains(u':') ? name : urlOf(name).toString(QUrl::FullyEncoded));
    set("FileList", list);
}

void EngineTest::describe(const QString& name, const MemoryMovieDescription& description)
{
    movies.describe(urlOf(name).toString(QUrl::FullyEncoded), description);
}

void EngineTest::setGoodPlaylist(const QStringList& names, double seconds)
{
    setPlaylist(names);
    for (const auto& name : names)
        describe(name, {.seconds = seconds});
}

void EngineTest::mark(const QString& words, const QStringList& names)
{
    EntryMarks::Wishes wishes;
    for (const QString& name : names)
        wishes.append({name.contains(u':') ? QUrl(name) : urlOf(name), entryMarkFrom(words).value()});
    EXPECT_TRUE(marks.change(wishes).isOk());
}

MySaver& EngineTest::makeSaver(bool isPreview, int screen, Size size)
{
    auto* place = desktop.screens().at(screen);
    auto window = std::make_unique<Window>(Window::Description{{place->frame().origin, size}, place, "host"});
    window->setBackgroundColor(Qt::black);
    window->setLevel(WindowLevel::ScreenSaver);
    auto saver = std::make_shared<MySaver>(Rect{{0, 0}, size}, isPreview, services());
    window->setContentView(saver.get());
    window->orderFront();
    m_hosted.push_back({std::move(window), saver});
    return *saver;
}

SaverServices EngineTest::services()
{
    return {desktop,      movies,   store,   trailers, signs,   backSavers, nullptr,
            movieOptions, &folders, shuffle, never,    caption, &marks};
}

void EngineTest::tick(MySaver& saver, int times)
{
    for (int i = 0; i < times; ++i) {
        timers.advance(saver.animationTimeInterval());
        QCoreApplication::processEvents();
        saver.animateOneFrame();
    }
}

void EngineTest::tickFor(MySaver& saver, double seconds)
{
    const double end = clock.now() + seconds - 1e-9;
    while (clock.now() < end)
        tick(saver);
}

QString EngineTest::playing(const MySaver& saver)
{
    const auto shot = saver.snapshot();
    return shot.movie ? shot.movie->url.section(u'/', -1) : QString();
}

int EngineTest::logged(const QString& line) const
{
    return static_cast<int>(std::count(log.begin(), log.end(), line));
}

const Window* EngineTest::windowOf(const QString& kind, int screen) const
{
    const auto& windows = desktop.screens().at(screen)->windows();
    const auto found =
        std::ranges::find_if(windows, [&kind](const Window* window) { return window->kind() == kind; });
    return found == windows.end() ? nullptr : *found;
}

QColor EngineTest::pixelAt(int x, int y)
{
    auto* screen = desktop.screens().front();
    screen->update();
    const QImage& image = ImageDesktop::surfaceOf(*screen).image();
    return image.pixelColor(x, image.height() - 1 - y);
}

} // namespace kestro
