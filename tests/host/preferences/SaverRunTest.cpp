#include "host/preferences/SaverRun.h"

#include "host/preferences/PreferencesTest.h"
#include "host/start/StopThread.h"

#include <QFile>
#include <QSignalSpy>

namespace kestro {

namespace {

class SaverRunTest : public PreferencesTest {
protected:
    /// What the run ended with.
    [[nodiscard]] QString endOf(SaverRun& run)
    {
        QSignalSpy ended(&run, &SaverRun::ended);
        run.start();
        if (!waitUntil([&] { return ended.count() > 0; })) return QStringLiteral("did not end");
        return ended.front().front().toString();
    }
    [[nodiscard]] bool isThere(const QString& name) const { return QFile::exists(folder.filePath(name)); }
};

} // namespace

TEST_F(SaverRunTest, run_endsWithoutAnError_whenTheProgramSucceeds)
{
    SaverRun run(program("echo 'a line' >&2"));
    EXPECT_EQ(endOf(run), QString());
    EXPECT_FALSE(run.isRunning());
}

TEST_F(SaverRunTest, run_tellsTheLastLine_whenTheProgramFails)
{
    SaverRun run(program("echo 'before' >&2; echo 'kestro: no display' >&2; exit 1"));
    EXPECT_EQ(endOf(run), QStringLiteral("kestro: no display"));
}

TEST_F(SaverRunTest, run_saysSo_whenTheProgramFailsWithoutAWord)
{
    SaverRun run(program("exit 3"));
    EXPECT_EQ(endOf(run), QStringLiteral("The saver could not run."));
}

TEST_F(SaverRunTest, run_saysSo_whenTheProgramCrashes)
{
    SaverRun run(program("kill -SEGV $$"));
    EXPECT_EQ(endOf(run), QStringLiteral("The saver ended unexpectedly."));
}

TEST_F(SaverRunTest, run_namesTheProgram_whenItCannotBeStarted)
{
    SaverRun run(QStringLiteral("/nowhere/kestro"));
    EXPECT_TRUE(endOf(run).startsWith(QStringLiteral("Cannot start /nowhere/kestro: ")));
}

TEST_F(SaverRunTest, run_canBeStartedAgain_whenItIsOver)
{
    SaverRun run(program("echo x >> '" + QFile::encodeName(folder.filePath(QStringLiteral("runs"))) + "'"));
    EXPECT_EQ(endOf(run), QString());
    EXPECT_EQ(endOf(run), QString());
    QFile runs(folder.filePath(QStringLiteral("runs")));
    ASSERT_TRUE(runs.open(QIODevice::ReadOnly));
    EXPECT_EQ(runs.readAll(), "x\nx\n");
}

TEST_F(SaverRunTest, program_hearsTheStopSignals_whichThisProcessHasBlocked)
{
    takeStopSignals();
    SaverRun run(program("grep '^SigBlk' /proc/self/status >&2; exit 1"));
    EXPECT_EQ(endOf(run), QStringLiteral("SigBlk:\t0000000000000000"));
}

TEST_F(SaverRunTest, stop_letsTheProgramEndByItself)
{
    const QByteArray place = QFile::encodeName(folder.path());
    SaverRun run(program("trap 'touch " + place + "/left; exit 0' TERM; touch " + place +
                         "/up; while :; do read x < /dev/zero; done"));
    run.start();
    ASSERT_TRUE(waitUntil([&] { return isThere(QStringLiteral("up")); }));
    run.stop();
    EXPECT_FALSE(run.isRunning());
}

TEST_F(SaverRunTest, stop_endsAProgramThatDoesNotListen)
{
    const QByteArray place = QFile::encodeName(folder.path());
    SaverRun run(program("trap '' TERM; touch " + place + "/up; while :; do :; done"));
    run.start();
    ASSERT_TRUE(waitUntil([&] { return isThere(QStringLiteral("up")); }));
    run.stop();
    EXPECT_FALSE(run.isRunning());
}

} // namespace kestro
