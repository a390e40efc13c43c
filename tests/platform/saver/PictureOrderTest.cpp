#include "platform/saver/PictureOrder.h"

#include "platform/base/Random.h"

#include <QSet>

#include <gtest/gtest.h>

namespace kestro {

namespace {

const QStringList pictures{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c"),
                           QStringLiteral("d")};

QStringList round(PictureOrder& order, const QStringList& of = pictures)
{
    QStringList shown;
    order.begin(of);
    while (const auto next = order.next()) {
        order.setShown(*next);
        shown.append(*next);
    }
    return shown;
}

} // namespace

TEST(PictureOrder, round_showsEachPictureOnce)
{
    SeededRandom random(5);
    PictureOrder order(random);
    for (int i = 0; i < 50; ++i) {
        QStringList shown = round(order);
        shown.sort();
        EXPECT_EQ(shown, pictures);
    }
}

TEST(PictureOrder, rounds_differ_byChance)
{
    SeededRandom random(5);
    PictureOrder order(random);
    QSet<QString> orders;
    for (int i = 0; i < 50; ++i)
        orders.insert(round(order).join(QString()));
    EXPECT_GT(orders.size(), 10);
    SeededRandom same(5);
    SeededRandom again(5);
    PictureOrder first(same);
    PictureOrder second(again);
    EXPECT_EQ(round(first), round(second));
}

TEST(PictureOrder, round_neverBeginsWithThePictureThatIsSeen)
{
    SeededRandom random(7);
    PictureOrder order(random);
    QString last = round(order).last();
    for (int i = 0; i < 200; ++i) {
        const QStringList shown = round(order);
        EXPECT_NE(shown.first(), last);
        last = shown.last();
    }
}

TEST(PictureOrder, next_passesOverThePictureThatIsSeen_whereOneBeforeItFailed)
{
    SeededRandom random(9);
    PictureOrder order(random);
    for (int i = 0; i < 100; ++i) {
        order.setShown(QStringLiteral("a"));
        order.begin(pictures);
        QString next = *order.next();
        EXPECT_NE(next, QStringLiteral("a"));
        next = *order.next(); // the one before could not be read
        EXPECT_NE(next, QStringLiteral("a"));
    }
}

TEST(PictureOrder, next_isTheOnlyPicture_overAndOver)
{
    SeededRandom random(1);
    PictureOrder order(random);
    const QStringList one{QStringLiteral("a")};
    EXPECT_EQ(round(order, one), one);
    EXPECT_EQ(round(order, one), one);
    EXPECT_TRUE(round(order, {}).isEmpty());
}

} // namespace kestro
