#include "host/commands/ScanProgress.h"

#include "platform/base/Log.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace kestro {

TEST(ScanProgress, progressLine_tellsCountsAndPage_cutToTheColumns)
{
    const CrawlCounts counts{12, 34, 56};
    const std::string whole = "12 pages, 34 records, 56 links to follow: http://h/trailers/";
    EXPECT_EQ(progressLine(counts, "http://h/trailers/", 200), whole);
    EXPECT_EQ(progressLine(counts, "http://h/trailers/", 20), whole.substr(0, 20));
    EXPECT_EQ(progressLine(counts, "http://h/trailers/", 0), "");
    EXPECT_EQ(progressLine(counts, "http://h/trailers/", -1), "");
}

TEST(ScanProgress, pageEnds_writesALine_whenItIsVerbose)
{
    QStringList lines;
    const LogCapture log([&](const QString& line) { lines.append(line); });
    ScanProgress(false).pageEnds("http://h/a", QStringLiteral("quiet"));
    ScanProgress(true).pageEnds("http://h/b", QStringLiteral("1 links"));
    EXPECT_EQ(lines, QStringList(QStringLiteral("http://h/b: 1 links")));
}

} // namespace kestro
