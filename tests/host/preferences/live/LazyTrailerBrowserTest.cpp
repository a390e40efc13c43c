#include "host/preferences/live/LazyTrailerBrowser.h"

#include "settings/URLListReceiver.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class NotingBrowser final : public TrailerBrowser {
public:
    explicit NotingBrowser(QStringList& journal)
        : m_journal(journal)
    {
    }
    void showPanel(URLListReceiver&) override { m_journal.append(QStringLiteral("show")); }
    void close() override { m_journal.append(QStringLiteral("close")); }

private:
    QStringList& m_journal;
};

class NoReceiver final : public URLListReceiver {
public:
    void addURLList(const QList<QUrl>&) override {}
};

class LazyTrailerBrowserTest : public testing::Test {
protected:
    QStringList journal;
    NoReceiver receiver;
    LazyTrailerBrowser browser{[this] {
        journal.append(QStringLiteral("make"));
        return std::make_unique<NotingBrowser>(journal);
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
