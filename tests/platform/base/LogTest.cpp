#include "platform/base/Log.h"

#include <QStringList>

#include <atomic>
#include <gtest/gtest.h>
#include <string>
#include <thread>
#include <vector>

namespace kestro {

TEST(Log, logLine_writesOneLine_whenNoSinkIsSet)
{
    testing::internal::CaptureStderr();
    logLine(QStringLiteral("opened grün.mov"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "opened grün.mov\n");
}

TEST(Log, logLine_staysOneLine_whenTextHoldsControlCharacters)
{
    testing::internal::CaptureStderr();
    logLine(QStringLiteral("a\nb\rc\x1b[2Jd"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a b c [2Jd\n");
}

TEST(Log, logLine_staysOneLineOfOneDirection_whenTextHoldsOtherSeparators)
{
    testing::internal::CaptureStderr();
    logLine(QStringLiteral("a\u2028b\u2029c\u202Ed\u2066e\u0085f\u0639"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "a b c d e f\u0639\n");
}

TEST(Log, logLine_showsNoSecretOfAURL_whoeverLogsIt)
{
    testing::internal::CaptureStderr();
    logLine(QStringLiteral("Failed: http://me:pw@h/x?tok=1"));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "Failed: http://h/x?…\n");
}

TEST(Log, logLine_writesALineOnce_whenItComesAgainAtOnce)
{
    testing::internal::CaptureStderr();
    for (const char* line : {"again", "again", "once", "again"})
        logLine(QString::fromLatin1(line));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "again\nonce\n");
}

TEST(LogCapture, sink_getsALineEachTime_whenItComesAgain)
{
    QStringList seen;
    const LogCapture capture([&seen](const QString& line) { seen.append(line); });
    logLine(QStringLiteral("again"));
    logLine(QStringLiteral("again"));
    EXPECT_EQ(seen.size(), 2);
}

TEST(Log, logLine_isCutAtABlank_whenTooLong)
{
    QStringList seen;
    const LogCapture capture([&seen](const QString& line) { seen.append(line); });
    logLine(QString(4000, u'a') + u' ' + QString(4000, u'b'));
    logLine(QString(5000, u'c'));
    EXPECT_EQ(seen, (QStringList{QString(4000, u'a') + QChar(u'…'), QString(4095, u'c') + QChar(u'…')}));
}

TEST(Log, logLine_keepsLinesWhole_whenThreadsLogAtOnce)
{
    constexpr int linesPerThread = 200;
    testing::internal::CaptureStderr();
    std::vector<std::thread> threads;
    for (const QChar letter : {u'w', u'x', u'y', u'z'}) {
        threads.emplace_back([letter] {
            for (int line = 0; line < linesPerThread; ++line)
                logLine(QString(40 + line, letter));
        });
    }
    for (std::thread& thread : threads)
        thread.join();

    auto lines =
        QString::fromStdString(testing::internal::GetCapturedStderr()).split(u'\n', Qt::SkipEmptyParts);
    lines.removeIf([](const QString& line) { return line.front() < u'w'; }); // held back in other tests
    EXPECT_EQ(lines.size(), 4 * linesPerThread);
    for (const QString& line : lines)
        EXPECT_EQ(line, QString(line.size(), line.front()));
}

TEST(LogCapture, sink_getsTheLines_whileItLives)
{
    QStringList seen;
    testing::internal::CaptureStderr();
    {
        const LogCapture capture([&seen](const QString& line) { seen.append(line); });
        logLine(QStringLiteral("inside"));
    }
    logLine(QStringLiteral("outside"));
    EXPECT_EQ(seen, QStringList{QStringLiteral("inside")});
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "outside\n");
}

TEST(LogCapture, destructor_givesBackTheSinkBefore_whenNested)
{
    QStringList outer;
    QStringList inner;
    const LogCapture first([&outer](const QString& line) { outer.append(line); });
    {
        const LogCapture second([&inner](const QString& line) { inner.append(line); });
        logLine(QStringLiteral("one"));
    }
    logLine(QStringLiteral("two"));
    EXPECT_EQ(inner, QStringList{QStringLiteral("one")});
    EXPECT_EQ(outer, QStringList{QStringLiteral("two")});
}

TEST(LogCapture, sink_mayLogItself_withoutLockingUp)
{
    QStringList seen;
    const LogCapture capture([&seen](const QString& line) {
        seen.append(line);
        if (seen.size() == 1) logLine(QStringLiteral("from the sink"));
    });
    logLine(QStringLiteral("first"));
    EXPECT_EQ(seen, (QStringList{QStringLiteral("first"), QStringLiteral("from the sink")}));
}

TEST(LogCapture, sink_isLeftAlone_onceTheCaptureIsGone)
{
    std::atomic<bool> gone = false;
    std::atomic<bool> calledAfter = false;
    std::atomic<bool> stop = false;
    std::atomic<int> called = 0;
    testing::internal::CaptureStderr();
    std::thread logger([&stop] {
        while (!stop)
            logLine(QStringLiteral("line"));
    });
    {
        const LogCapture capture([&](const QString&) {
            calledAfter = calledAfter || gone;
            ++called;
        });
        while (called < 100)
            std::this_thread::yield();
    }
    gone = true;
    stop = true;
    logger.join();
    testing::internal::GetCapturedStderr();
    EXPECT_FALSE(calledAfter);
}

} // namespace kestro
