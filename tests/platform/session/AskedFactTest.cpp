#include "platform/session/AskedFact.h"

#include <gtest/gtest.h>
#include <utility>

using namespace kestro;

namespace {

/// One whose looks are answered by hand.
class HandFact final : public AskedFact {
public:
    void tellOfChange() { refresh(); }
    void find(const QList<Hindrance>& hindrances) { std::exchange(m_found, nullptr)(hindrances); }
    [[nodiscard]] bool isLooking() const { return m_found != nullptr; }
    [[nodiscard]] int looks() const { return m_looks; }

private:
    void look(Found found) override
    {
        ++m_looks;
        m_found = std::move(found);
    }

    Found m_found;
    int m_looks = 0;
};

const QList<Hindrance> some = {{HindranceKind::Inhibited, {}, {}}};

} // namespace

TEST(askedFact, ask_joinsTheLookThatIsUnderWay)
{
    HandFact fact;
    int answers = 0;
    fact.ask([&answers] { ++answers; });
    fact.ask([&answers] { ++answers; });
    fact.find(some);
    EXPECT_EQ(answers, 2);
    EXPECT_EQ(fact.looks(), 1);
    EXPECT_EQ(fact.hindrances(), some);
}

TEST(askedFact, change_isLookedAtOnceMore_whenManyAreToldDuringALook)
{
    HandFact fact;
    fact.tellOfChange();
    for (int i = 0; i < 1000; ++i)
        fact.tellOfChange();
    fact.find({});
    EXPECT_TRUE(fact.isLooking());
    fact.find(some);
    EXPECT_FALSE(fact.isLooking());
    EXPECT_EQ(fact.looks(), 2);
}

TEST(askedFact, change_isToldOnce_whenALookFindsTheSame)
{
    HandFact fact;
    int changes = 0;
    fact.setChangeHandler([&changes] { ++changes; });
    for (int i = 0; i < 2; ++i) {
        fact.tellOfChange();
        fact.find(some);
    }
    EXPECT_EQ(changes, 1);
}
