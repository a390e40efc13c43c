#include "host/commands/Program.h"

#include "platform/base/Log.h"

#include <QSet>

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// A program of two commands: the one without a name answers 7, the one with a name what it was given.
class ProgramTest : public testing::Test {
protected:
    int run(const QStringList& words)
    {
        log.clear();
        const LogCapture capture([this](const QString& line) { log.append(line); });
        testing::internal::CaptureStdout();
        const int status = program.run(words);
        output = QString::fromStdString(testing::internal::GetCapturedStdout());
        return status;
    }

    QStringList log;
    QString output;
    Program program{
        QStringLiteral("1.2.3"),
        {{{{}, QStringLiteral("Plain"), {{QStringLiteral("version"), {}, QStringLiteral("tell it")}}},
          [](const Arguments&) { return 7; }},
         {{QStringLiteral("echo"),
           QStringLiteral("Echo it"),
           {{QStringLiteral("n"), QStringLiteral("N"), {}}}},
          [](const Arguments& given) { return given.integer(QStringLiteral("n"), 8, 0, 100).value(); }}}};
};

} // namespace

TEST_F(ProgramTest, run_runsTheFirstCommand_whenNoneIsNamed)
{
    EXPECT_EQ(run({}), 7);
}

TEST_F(ProgramTest, run_runsTheNamedCommandWithItsArguments_whenItIsKnown)
{
    EXPECT_EQ(run({QStringLiteral("echo")}), 8);
    EXPECT_EQ(run({QStringLiteral("echo"), QStringLiteral("--n=42")}), 42);
}

TEST_F(ProgramTest, run_answersTwoWithOneLine_whenUsedWrongly)
{
    const std::pair<QStringList, QString> cases[] = {
        {{QStringLiteral("ecko")}, QStringLiteral("kestro: Unknown command \"ecko\" (see kestro --help)")},
        {{QString()}, QStringLiteral("kestro: Unknown command \"\" (see kestro --help)")},
        {{QStringLiteral("--n=1")}, QStringLiteral("kestro: Unknown option \"--n=1\" (see kestro --help)")},
        {{QStringLiteral("echo"), QStringLiteral("x")},
         QStringLiteral("kestro: Unexpected argument \"x\" (see kestro echo --help)")},
        {{QStringLiteral("--version"), QStringLiteral("echo")},
         QStringLiteral("kestro: Unexpected argument \"echo\" (see kestro --help)")},
    };
    for (const auto& [words, line] : cases) {
        EXPECT_EQ(run(words), 2);
        EXPECT_EQ(log, QStringList{line});
        EXPECT_EQ(output, QString());
    }
}

TEST_F(ProgramTest, run_printsTheVersion_whenAsked)
{
    EXPECT_EQ(run({QStringLiteral("--version")}), 0);
    EXPECT_EQ(output, QStringLiteral("kestro 1.2.3\n"));
}

TEST_F(ProgramTest, run_listsTheNamedCommands_whenAskedForHelp)
{
    EXPECT_EQ(run({QStringLiteral("--help")}), 0);
    EXPECT_TRUE(output.startsWith(QStringLiteral("Usage: kestro [--version] [--help]\n\nPlain\n")));
    EXPECT_TRUE(output.endsWith(QStringLiteral("\n  kestro echo  Echo it\n")));
}

TEST_F(ProgramTest, run_showsTheCommandsHelpAndDoesNotRunIt_whenAsked)
{
    EXPECT_EQ(run({QStringLiteral("echo"), QStringLiteral("--help")}), 0);
    EXPECT_TRUE(output.startsWith(QStringLiteral("Usage: kestro echo [--n N] [--help]\n")));
}

TEST(AllCommands, names_areUniqueWithTheFullScreenRunFirst_whenListed)
{
    QStringList names;
    for (const Command& command : allCommands())
        names.append(command.syntax.name);
    ASSERT_FALSE(names.isEmpty());
    EXPECT_EQ(names.front(), QString());
    EXPECT_EQ(QSet<QString>(names.begin(), names.end()).size(), names.size());
    EXPECT_TRUE(names.contains(QStringLiteral("install-xscreensaver")));
}

} // namespace kestro
