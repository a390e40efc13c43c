#include "host/preferences/live/LazyTrailerBrowser.h"

#include "host/preferences/live/NotedBrowser.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

class LazyTrailerBrowserTest : public testing::Test {
protected:
    QStringList journal;
    NoReceiver receiver;
    LazyTrailerBrowser browser{[this] {
        journal.append(QStringLiteral("make"));
        return std::make_unique<NotedBrowser>(journal);
    }};
};

} // namespace

TEST_F(LazyTrailerBrowserTest, close_makesNoBrowser_whenNoneWasShown)
{
    browser.close();
    EXPECT_EQ(journal, QStringList());
}

TEST_F(LazyTrailerBrowserTest, browser_isMadeOnce_whenShownAgain)
{
    browser.showPanel(receiver);
    browser.close();
    browser.showPanel(receiver);
    EXPECT_EQ(journal, QStringList({QStringLiteral("make"), QStringLiteral("show"), QStringLiteral("close"),
                                    QStringLiteral("show")}));
}

} // namespace kestro
