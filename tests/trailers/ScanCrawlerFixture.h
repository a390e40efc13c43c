#pragma once

#include "platform/base/Clock.h"
#include "trailers/MemoryFetch.h"
#include "trailers/ScanCrawler.h"
#include "trailers/TrailerListFixture.h"

namespace kestro {

inline QByteArray linkTo(const QByteArray& address)
{
    return "<a href=\"" + address + "\">";
}

inline QByteArray movieCall(const QByteArray& name)
{
    return "AC.Quicktime.packageMovie('m','" + name + "',{width:480, height:204})";
}

/// A crawl of a site in memory, whose start page is http://h/trailers/.
class ScanCrawlerTest : public TrailerListFixture {
protected:
    static inline const QString site = QStringLiteral("http://h");

    ScanCrawlerTest()
    {
        m_list.load();
        m_crawler.setSiteHost("h");
    }

    static QString full(const char* path) { return site + QLatin1String(path); }
    void page(const char* path, const QByteArray& text) { m_fetch.put(full(path), "<html>" + text); }
    void raw(const char* path, const QByteArray& bytes) { m_fetch.put(full(path), bytes); }
    bool scan(const char* path = "/trailers/", bool progress = false)
    {
        return m_crawler.scanURLProgress(full(path).toStdString(), progress);
    }
    [[nodiscard]] QStringList asked() const
    {
        QStringList paths;
        for (const QString& url : m_fetch.asked())
            paths.append(url.mid(site.size()));
        return paths;
    }
    [[nodiscard]] bool hasMovie(const char* path) const { return m_list.record(full(path)).has_value(); }
    [[nodiscard]] bool isPassed(const char* path) const { return m_list.isPassed(full(path).toStdString()); }
    [[nodiscard]] QString scratchFolder() const { return m_home.filePath(QStringLiteral("scratch")); }

    MemoryFetch m_fetch;
    TrailerList m_list{m_home.path(), seed()};
    bool m_isWanted = true;
    int m_reloads = 0;
    ManualClock m_clock;
    ScanCrawler m_crawler{m_fetch,
                          m_list,
                          scratchFolder(),
                          {[this] { return m_isWanted; }, [this] { ++m_reloads; }},
                          CrawlBudget(CrawlLimits(), m_clock)};
};

} // namespace kestro
