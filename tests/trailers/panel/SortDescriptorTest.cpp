#include "trailers/panel/SortDescriptor.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

const QString url = QStringLiteral("URL");
const QString date = QStringLiteral("Date");
const SortDescriptor urlUp{url, true};
const SortDescriptor urlDown{url, false};
const SortDescriptor dateUp{date, true};
const SortDescriptor dateDown{date, false};

struct SortCase {
    std::string name;
    std::optional<SortDescriptor> prototype;
    QList<SortDescriptor> previous;
    std::optional<SortDescriptor> chosen;

    friend void PrintTo(const SortCase& one, std::ostream* out) { *out << one.name; }
};

const std::vector<SortCase> sortCases{
    {"noPrototype", {}, {urlUp}, {}},
    {"prototypeWithoutKey", SortDescriptor{}, {urlUp}, {}},
    {"firstChoiceTakesPrototype", dateDown, {}, dateDown},
    {"firstChoiceTakesAscendingPrototype", urlUp, {}, urlUp},
    {"presentColumnIsReversed", urlUp, {urlUp}, urlDown},
    {"presentColumnIsReversedBack", urlUp, {urlDown}, urlUp},
    {"otherColumnTakesPrototype", urlUp, {dateDown}, urlUp},
    {"otherColumnTakesItsLastDirection", dateDown, {urlUp, dateUp}, dateUp},
    {"firstOfTheSameKeyCounts", dateDown, {urlUp, dateUp, dateDown}, dateUp},
    {"presentColumnIsReversedWhateverStandsBehind", urlUp, {urlDown, urlDown}, urlUp},
};

class SortDescriptorTest : public testing::TestWithParam<SortCase> {};

} // namespace

TEST_P(SortDescriptorTest, chosenSortDescriptor_followsTheRule)
{
    EXPECT_EQ(chosenSortDescriptor(GetParam().prototype, GetParam().previous), GetParam().chosen);
}

INSTANTIATE_TEST_SUITE_P(Rule, SortDescriptorTest, testing::ValuesIn(sortCases),
                         [](const auto& test) { return test.param.name; });

TEST(SortDescriptorListTest, withChosen_movesTheKeyToTheFront)
{
    EXPECT_EQ(withChosen(urlUp, {}), QList<SortDescriptor>{urlUp});
    EXPECT_EQ(withChosen(dateUp, {urlUp}), (QList<SortDescriptor>{dateUp, urlUp}));
    EXPECT_EQ(withChosen(urlDown, {dateUp, urlUp}), (QList<SortDescriptor>{urlDown, dateUp}));
}

} // namespace kestro
