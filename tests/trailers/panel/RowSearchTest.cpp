#include "trailers/panel/RowSearch.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

struct SearchCase {
    std::string name;
    QStringList urls;
    QString text;
    std::optional<qsizetype> selected;
    std::optional<qsizetype> found;

    friend void PrintTo(const SearchCase& one, std::ostream* out) { *out << one.name; }
};

const QStringList four{QStringLiteral("http://h/ada.mov"), QStringLiteral("http://h/bob.mov"),
                       QStringLiteral("http://h/Ada2.mov"), QStringLiteral("http://h/eve.mov")};

const std::vector<SearchCase> searchCases{
    {"emptyList", {}, QStringLiteral("a"), {}, {}},
    {"emptyText", four, QString(), 0, {}},
    {"oneRowWithoutSelection", {four[0]}, QStringLiteral("ada"), {}, {}},
    {"oneRowSelected", {four[0]}, QStringLiteral("ada"), 0, {}},
    {"firstRowWithoutSelection", four, QStringLiteral("ada"), {}, 0},
    {"lastRowWithoutSelectionIsNeverTested", four, QStringLiteral("eve"), {}, {}},
    {"lastButOneWithoutSelection", four, QStringLiteral("ada2"), {}, 2},
    {"nextAfterTheSelection", four, QStringLiteral("ada"), 0, 2},
    {"wrapsAtTheEnd", four, QStringLiteral("ada"), 2, 0},
    {"wrapsFromTheLastRow", four, QStringLiteral("bob"), 3, 1},
    {"startRowIsNeverTested", four, QStringLiteral("bob"), 1, {}},
    {"whateverCase", four, QStringLiteral("BOB"), 0, 1},
    {"capitalsInTheAddress", four, QStringLiteral("ada2"), 0, 2},
    {"nothingLikeIt", four, QStringLiteral("zoe"), 1, {}},
    {"noPattern", four, QStringLiteral("a.a"), 1, {}},
};

class RowSearchTest : public testing::TestWithParam<SearchCase> {};

} // namespace

TEST_P(RowSearchTest, findNextRow_followsTheRule)
{
    EXPECT_EQ(findNextRow(GetParam().urls, GetParam().text, GetParam().selected), GetParam().found);
}

INSTANTIATE_TEST_SUITE_P(Rule, RowSearchTest, testing::ValuesIn(searchCases),
                         [](const auto& test) { return test.param.name; });

} // namespace kestro
