#include "host/start/Arguments.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

Syntax syntax()
{
    return {QStringLiteral("draw"),
            QStringLiteral("Draw it"),
            {{QStringLiteral("all"), {}, QStringLiteral("draw all")},
             {QStringLiteral("to"), QStringLiteral("FILE"), QStringLiteral("where to"), true},
             {QStringLiteral("times"), QStringLiteral("N"), QStringLiteral("how often")}}};
}

Syntax syntaxWithOperands()
{
    Syntax draw = syntax();
    draw.operands = {{QStringLiteral("FIRST"), QStringLiteral("the one")},
                     {QStringLiteral("SECOND"), QStringLiteral("the other")}};
    return draw;
}

Arguments parsed(const QStringList& words)
{
    const auto result = Arguments::parse(syntax(), words);
    EXPECT_TRUE(result.isOk()) << (result.isOk() ? "" : qPrintable(result.error()));
    return result.isOk() ? result.value() : Arguments();
}

QString refusal(const QStringList& words)
{
    const auto result = Arguments::parse(syntax(), words);
    return result.isOk() ? QString() : result.error();
}

const QString times = QStringLiteral("times");

Arguments timesGiven(const char* text)
{
    return parsed({QStringLiteral("--times"), QString::fromLatin1(text)});
}

} // namespace

TEST(Arguments, parse_readsFlagsAndBothFormsOfValues_whenTheyAreKnown)
{
    const Arguments given = parsed({QStringLiteral("--all"), QStringLiteral("--to"), QStringLiteral("--x y"),
                                    QStringLiteral("--times=a=b")});
    EXPECT_TRUE(given.has(QStringLiteral("all")));
    EXPECT_EQ(given.text(QStringLiteral("to")), QStringLiteral("--x y"));
    EXPECT_EQ(given.text(times), QStringLiteral("a=b"));
}

TEST(Arguments, parse_readsOperandsInTheirOrder_whenOptionsStandBetweenThem)
{
    const auto given = Arguments::parse(syntaxWithOperands(),
                                        {QStringLiteral("-1"), QStringLiteral("--all"), QStringLiteral("b")});
    ASSERT_TRUE(given.isOk());
    EXPECT_EQ(given.value().operands(), (QStringList{QStringLiteral("-1"), QStringLiteral("b")}));
    EXPECT_TRUE(given.value().has(QStringLiteral("all")));
}

TEST(Arguments, parse_takesEveryWordAsOperand_whenTwoDashesStandBefore)
{
    const auto given = Arguments::parse(
        syntaxWithOperands(), {QStringLiteral("--"), QStringLiteral("--all"), QStringLiteral("--")});
    ASSERT_TRUE(given.isOk());
    EXPECT_EQ(given.value().operands(), (QStringList{QStringLiteral("--all"), QStringLiteral("--")}));
    EXPECT_FALSE(given.value().has(QStringLiteral("all")));
}

TEST(Arguments, parse_namesTheOperand_whenItIsMissingOrTooMany)
{
    const auto missing = Arguments::parse(syntaxWithOperands(), {QStringLiteral("a")});
    ASSERT_FALSE(missing.isOk());
    EXPECT_EQ(missing.error(), QStringLiteral("SECOND is missing"));
    const auto tooMany = Arguments::parse(syntaxWithOperands(),
                                          {QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")});
    ASSERT_FALSE(tooMany.isOk());
    EXPECT_EQ(tooMany.error(), QStringLiteral("Unexpected argument \"c\""));
    EXPECT_TRUE(Arguments::parse(syntaxWithOperands(), {QStringLiteral("--help")}).isOk());
}

TEST(Arguments, parse_takesAnyNumberOfFurtherOperands_whenTheSyntaxHasThem)
{
    Syntax open = syntax();
    open.more = Operand{QStringLiteral("NAME"), QStringLiteral("one of many")};
    EXPECT_TRUE(Arguments::parse(open, {}).value().operands().isEmpty());
    const QStringList words{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("--"),
                            QStringLiteral("--all")};
    const auto given = Arguments::parse(open, words);
    ASSERT_TRUE(given.isOk());
    EXPECT_EQ(given.value().operands(),
              (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("--all")}));
    EXPECT_TRUE(helpText(open).startsWith(QStringLiteral("Usage: kestro draw [NAME...] ")));
    EXPECT_TRUE(helpText(open).contains(QStringLiteral("one of many")));
}

TEST(Arguments, parse_knowsHelp_whenTheSyntaxDoesNotNameIt)
{
    EXPECT_TRUE(parsed({QStringLiteral("--help")}).has(QStringLiteral("help")));
}

TEST(Arguments, parse_takesTheLast_whenAnOptionIsGivenTwice)
{
    EXPECT_EQ(parsed({QStringLiteral("--to=a"), QStringLiteral("--to=b")}).text(QStringLiteral("to")),
              QStringLiteral("b"));
}

TEST(Arguments, parse_takesOneDashForTwo_whenTheSyntaxSaysSo)
{
    Syntax lenient = syntax();
    lenient.isOneDashEnough = true;
    const auto given = Arguments::parse(lenient, {QStringLiteral("-all"), QStringLiteral("-to=x")});
    ASSERT_TRUE(given.isOk());
    EXPECT_TRUE(given.value().has(QStringLiteral("all")));
    EXPECT_EQ(given.value().text(QStringLiteral("to")), QStringLiteral("x"));
    EXPECT_FALSE(Arguments::parse(syntax(), {QStringLiteral("-all")}).isOk());
    EXPECT_FALSE(Arguments::parse(lenient, {QStringLiteral("all")}).isOk());
}

TEST(Arguments, text_isNothing_whenNotGiven)
{
    EXPECT_FALSE(parsed({}).text(QStringLiteral("to")).has_value());
    EXPECT_EQ(parsed({QStringLiteral("--to=")}).text(QStringLiteral("to")), QString());
}

TEST(Arguments, parse_namesTheWord_whenItIsNotUnderstood)
{
    const std::pair<QStringList, QString> cases[] = {
        {{QStringLiteral("stray")}, QStringLiteral("Unexpected argument \"stray\"")},
        {{QStringLiteral("-a")}, QStringLiteral("Unexpected argument \"-a\"")},
        {{QStringLiteral("--")}, QStringLiteral("Unknown option \"--\"")},
        {{QStringLiteral("--al")}, QStringLiteral("Unknown option \"--al\"")},
        {{QStringLiteral("--all=1")}, QStringLiteral("--all takes no value")},
        {{QStringLiteral("--help=1")}, QStringLiteral("--help takes no value")},
        {{QStringLiteral("--to")}, QStringLiteral("--to needs a value")},
    };
    for (const auto& [words, message] : cases)
        EXPECT_EQ(refusal(words), message);
}

TEST(Arguments, integer_isTheNumber_whenWithinItsBounds)
{
    EXPECT_EQ(timesGiven("1").integer(times, 5, 1, 9).value(), 1);
    EXPECT_EQ(timesGiven("9").integer(times, 5, 1, 9).value(), 9);
    EXPECT_EQ(parsed({}).integer(times, 5, 1, 9).value(), 5);
}

TEST(Arguments, integer_isRefused_whenItIsNoneOrOutOfBounds)
{
    for (const char* text : {"", "0", "10", "-1", "2.0", "two", "2x", "99999999999"})
        EXPECT_FALSE(timesGiven(text).integer(times, 5, 1, 9).isOk()) << text;
    EXPECT_EQ(timesGiven("0").integer(times, 5, 1, 9).error(),
              QStringLiteral("--times needs a whole number from 1 to 9, not \"0\""));
}

TEST(Arguments, real_isTheNumber_whenWithinItsBounds)
{
    EXPECT_DOUBLE_EQ(timesGiven("0.5").real(times, 2, 0.5, 3).value(), 0.5);
    EXPECT_DOUBLE_EQ(timesGiven("3").real(times, 2, 0.5, 3).value(), 3);
    EXPECT_DOUBLE_EQ(parsed({}).real(times, 2, 0.5, 3).value(), 2);
}

TEST(Arguments, real_isRefused_whenItIsNoneOrOutOfBounds)
{
    for (const char* text : {"", "0.4", "3.1", "nan", "inf", "1,5", "1s", "1e3"})
        EXPECT_FALSE(timesGiven(text).real(times, 2, 0.5, 3).isOk()) << text;
}

TEST(Arguments, helpText_tellsUsageAndEachOption_whenAsked)
{
    EXPECT_EQ(helpText(syntax()),
              QStringLiteral("Usage: kestro draw [--all] --to FILE [--times N] [--help]\n\n"
                             "Draw it\n\n"
                             "  --all      draw all\n"
                             "  --to FILE  where to\n"
                             "  --times N  how often\n"
                             "  --help     show this help\n"));
}

TEST(Arguments, helpText_tellsOperandsBeforeOptions_whenThereAreAny)
{
    Syntax draw = syntaxWithOperands();
    draw.options.clear();
    EXPECT_EQ(helpText(draw), QStringLiteral("Usage: kestro draw FIRST SECOND [--help]\n\n"
                                             "Draw it\n\n"
                                             "  FIRST   the one\n"
                                             "  SECOND  the other\n"
                                             "  --help  show this help\n"));
}

} // namespace kestro
