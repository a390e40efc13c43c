#pragma once

#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/movie/MemoryMovie.h"
#include "settings/URLListReceiver.h"
#include "support/WaitUntil.h"
#include "trailers/MemoryFetch.h"
#include "trailers/TrailerListFixture.h"
#include "trailers/panel/TrailerPanel.h"

#include <QApplication>
#include <QTimer>

namespace kestro {

/// Remembers what it was given.
class NotingReceiver final : public URLListReceiver {
public:
    void addURLList(const QList<QUrl>& urls) override { given.append(urls); }

    QList<QList<QUrl>> given;
};

/// Calls `answer` with the next window that is run modally, once that waits for a person.
inline void answerModal(std::function<void(QWidget&)> answer)
{
    QTimer::singleShot(0, qApp, [answer = std::move(answer)] {
        QWidget* window = QApplication::activeModalWidget();
        window ? answer(*window) : answerModal(answer);
    });
}

/// A home folder, a site in memory, movies in memory, services with a clock turned by hand.
class PanelTest : public TrailerListFixture {
protected:
    explicit PanelTest(const CrawlLimits& limits = {})
    {
        auto fetch = std::make_unique<MemoryFetch>();
        m_fetch = fetch.get();
        m_controller =
            std::make_unique<TrailerCont>(TrailerCont::Parts{m_home.path(),
                                                             seed(),
                                                             m_home.path(),
                                                             {QStringLiteral("http://h/trailers/"), {}},
                                                             std::move(fetch),
                                                             limits});
    }

    [[nodiscard]] TrailerList& list() { return m_controller->list(); }
    /// A list of `count` trailers of one day, "http://h/000.mov" the last of them.
    void storeTrailers(int count)
    {
        std::vector<TrailerRecord> records;
        for (int number = 0; number < count; ++number)
            records.push_back(record(qPrintable(QString::asprintf("http://h/%03d.mov", number))));
        list().store(std::move(records));
    }
    static QString urlOf(int number) { return QString::asprintf("http://h/%03d.mov", number); }

    ManualClock m_clock;
    ManualTimerSource m_timers{m_clock};
    SeededRandom m_random{1};
    SurfaceServices m_services{m_timers, m_clock, m_random};
    MemoryMovieLibrary m_movies{m_clock};
    MemoryFetch* m_fetch = nullptr;
    std::unique_ptr<TrailerCont> m_controller;
};

} // namespace kestro
