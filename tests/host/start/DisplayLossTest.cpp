#include "host/start/DisplayLoss.h"

#include <QStringList>
#include <QtGlobal>

#include <gtest/gtest.h>
#include <thread>

namespace kestro {

namespace {

QStringList passedOn;

void keep(QtMsgType, const QMessageLogContext&, const QString& message)
{
    passedOn.append(message);
}

class DisplayLossTest : public testing::Test {
protected:
    DisplayLossTest() { passedOn.clear(); }
    ~DisplayLossTest() override { qInstallMessageHandler(m_before); }

    int losses = 0;

private:
    QtMessageHandler m_before = qInstallMessageHandler(keep);
};

} // namespace

TEST_F(DisplayLossTest, handler_isCalledOnce_whenQtSaysThatTheServerIsGone)
{
    for (const char* words : {"The X11 connection broke (error 1). Did the X11 server die?",
                              "The Wayland connection broke. Did the Wayland compositor die?",
                              "The Wayland connection experienced a fatal error: Protocol error"}) {
        const DisplayLoss watch([this] { ++losses; });
        losses = 0;
        qWarning("%s", words);
        qWarning("%s", words);
        EXPECT_EQ(losses, 1) << words;
    }
    EXPECT_EQ(passedOn.size(), 6);
}

TEST_F(DisplayLossTest, otherWords_arePassedOn)
{
    const DisplayLoss watch([this] { ++losses; });
    qWarning("a picture cannot be read");
    EXPECT_EQ(passedOn, QStringList{QStringLiteral("a picture cannot be read")});
    EXPECT_EQ(losses, 0);
}

TEST_F(DisplayLossTest, handler_isLeftAlone_onAnotherThread)
{
    const DisplayLoss watch([this] { ++losses; });
    std::thread([] { qWarning("The X11 connection broke (error 1). Did the X11 server die?"); }).join();
    EXPECT_EQ(losses, 0);
}

TEST_F(DisplayLossTest, formerHandler_isBack_whenDestroyed)
{
    {
        const DisplayLoss watch([this] { ++losses; });
    }
    qWarning("The X11 connection broke (error 1). Did the X11 server die?");
    EXPECT_EQ(losses, 0);
    EXPECT_EQ(passedOn.size(), 1);
}

} // namespace kestro
