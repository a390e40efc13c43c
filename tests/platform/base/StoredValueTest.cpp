#include "platform/base/StoredValue.h"

#include <QByteArray>
#include <QDateTime>
#include <QLocale>

#include <cfloat>
#include <clocale>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace kestro {

namespace {

struct IntCase {
    QVariant stored;
    int expected;
};

struct FloatCase {
    QVariant stored;
    float expected;
};

// Objects that are neither text, number nor flag.
std::vector<QVariant> otherObjects()
{
    return {QVariant(), QVariantList{5}, QVariantMap{{QStringLiteral("5"), 5}}, QByteArray("5"),
            QDateTime::fromSecsSinceEpoch(5)};
}

/// Qt's locale is one with a decimal comma for its life time, and the C library's as well where one is
/// installed.
class LocaleWithComma {
public:
    LocaleWithComma()
        : m_before(std::setlocale(LC_ALL, nullptr))
    {
        QLocale::setDefault(QLocale(QLocale::German));
        for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "de_DE", "nl_NL.UTF-8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) return;
        }
    }
    ~LocaleWithComma()
    {
        std::setlocale(LC_ALL, m_before.c_str());
        QLocale::setDefault(QLocale::system());
    }
    LocaleWithComma(const LocaleWithComma&) = delete;
    LocaleWithComma& operator=(const LocaleWithComma&) = delete;

private:
    std::string m_before;
};

} // namespace

TEST(StoredValue, intValue_readsTheNumberAtTheStart_ofText)
{
    const std::vector<IntCase> cases{
        {QStringLiteral("0"), 0},        {QStringLiteral("5"), 5},         {QStringLiteral("+5"), 5},
        {QStringLiteral("-5"), -5},      {QStringLiteral(" \t\n 12"), 12}, {QStringLiteral("007"), 7},
        {QStringLiteral("4.000000"), 4}, {QStringLiteral("4.9"), 4},       {QStringLiteral("-4.9"), -4},
        {QStringLiteral("12abc"), 12},   {QStringLiteral("12 13"), 12},    {QStringLiteral("1e3"), 1},
    };
    for (const IntCase& c : cases)
        EXPECT_EQ(intValue(c.stored), c.expected) << c.stored.toString().toStdString();
}

TEST(StoredValue, intValue_isZero_whenTextHoldsNoNumber)
{
    for (const char* text :
         {"", " ", "abc", "-", "+", "--5", "+-5", "- 5", "YES", "true", ".5", "x10", "0x10", "٣"})
        EXPECT_EQ(intValue(QString::fromUtf8(text)), 0) << text;
}

TEST(StoredValue, intValue_isTheNearestThatFits_whenTextIsTooLarge)
{
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    const std::vector<IntCase> cases{
        {QStringLiteral("2147483647"), most},
        {QStringLiteral("2147483648"), most},
        {QStringLiteral("-2147483647"), least + 1},
        {QStringLiteral("-2147483648"), least},
        {QStringLiteral("-2147483649"), least},
        {QStringLiteral("99999999999999999999999999"), most},
        {QStringLiteral("-99999999999999999999999999"), least},
        {QString(100000, u'9'), most},
    };
    for (const IntCase& c : cases)
        EXPECT_EQ(intValue(c.stored), c.expected) << c.stored.toString().left(40).toStdString();
}

TEST(StoredValue, intValue_readsNumberAndFlagObjects)
{
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    const std::vector<IntCase> cases{
        {true, 1},
        {false, 0},
        {7, 7},
        {7U, 7},
        {qlonglong(-7), -7},
        {qulonglong(7), 7},
        {3.9, 3},
        {-3.9, -3},
        {3.5F, 3},
        {qlonglong(1) << 40, most},
        {-(qlonglong(1) << 40), least},
        {std::numeric_limits<qulonglong>::max(), most},
        {1e300, most},
        {-std::numeric_limits<double>::infinity(), least},
        {std::nan(""), 0},
    };
    for (const IntCase& c : cases)
        EXPECT_EQ(intValue(c.stored), c.expected) << c.stored.toString().toStdString();
}

TEST(StoredValue, intValueAndFloatValue_areZero_forOtherObjects)
{
    for (const QVariant& object : otherObjects()) {
        EXPECT_EQ(intValue(object), 0) << object.typeName();
        EXPECT_EQ(floatValue(object), 0.0F) << object.typeName();
    }
}

TEST(StoredValue, floatValue_readsTheNumberAtTheStart_ofText)
{
    const std::vector<FloatCase> cases{
        {QStringLiteral("4.000000"), 4.0F}, {QStringLiteral("0.1"), 0.1F},
        {QStringLiteral(" \n-2.5"), -2.5F}, {QStringLiteral("+2.5"), 2.5F},
        {QStringLiteral(".5"), 0.5F},       {QStringLiteral("5."), 5.0F},
        {QStringLiteral("5.x"), 5.0F},      {QStringLiteral("1e3"), 1000.0F},
        {QStringLiteral("1E-2"), 0.01F},    {QStringLiteral("1e+2"), 100.0F},
        {QStringLiteral("2.5e1z"), 25.0F},  {QStringLiteral("1e"), 1.0F},
        {QStringLiteral("1e+"), 1.0F},      {QStringLiteral("1ex"), 1.0F},
        {QStringLiteral("1,5"), 1.0F},      {QStringLiteral("1.2.3"), 1.2F},
        {QStringLiteral("3.5 s"), 3.5F},
    };
    for (const FloatCase& c : cases)
        EXPECT_EQ(floatValue(c.stored), c.expected) << c.stored.toString().toStdString();
}

TEST(StoredValue, floatValue_isZero_whenTextHoldsNoNumber)
{
    for (const char* text : {"", "abc", "-", ".", "-.", "nan", "NaN", "inf", "-inf", "infinity", "0x10", "e5",
                             ".e5", "--1", "- 1"})
        EXPECT_EQ(floatValue(QString::fromUtf8(text)), 0.0F) << text;
}

TEST(StoredValue, floatValue_isTheNearestThatFits_whenTooLargeOrTooSmall)
{
    const std::vector<FloatCase> cases{
        {QStringLiteral("1e400"), FLT_MAX},
        {QStringLiteral("-1e400"), -FLT_MAX},
        {QStringLiteral("1e99999999999999999999"), FLT_MAX},
        {QStringLiteral("1e-400"), 0.0F},
        {1e300, FLT_MAX},
        {-std::numeric_limits<double>::infinity(), -FLT_MAX},
        {std::nan(""), 0.0F},
    };
    for (const FloatCase& c : cases)
        EXPECT_EQ(floatValue(c.stored), c.expected) << c.stored.toString().toStdString();
}

TEST(StoredValue, floatValue_readsNumberAndFlagObjects)
{
    const std::vector<FloatCase> cases{
        {true, 1.0F},          {false, 0.0F}, {4, 4.0F},    {qlonglong(-4), -4.0F},
        {qulonglong(4), 4.0F}, {0.1, 0.1F},   {2.5F, 2.5F},
    };
    for (const FloatCase& c : cases)
        EXPECT_EQ(floatValue(c.stored), c.expected) << c.stored.toString().toStdString();
}

TEST(StoredValue, floats_useAPoint_whateverTheLocale)
{
    const LocaleWithComma locale;
    EXPECT_EQ(floatValue(QStringLiteral("4.5")), 4.5F);
    EXPECT_EQ(floatValue(QStringLiteral("4,5")), 4.0F);
    EXPECT_EQ(storedFloat(4.5), QStringLiteral("4.500000"));
}

TEST(StoredValue, storedInt_isDecimalText)
{
    EXPECT_EQ(storedInt(0), QStringLiteral("0"));
    EXPECT_EQ(storedInt(-12), QStringLiteral("-12"));
    EXPECT_EQ(storedInt(std::numeric_limits<int>::max()), QStringLiteral("2147483647"));
}

TEST(StoredValue, storedFloat_hasSixDecimals)
{
    EXPECT_EQ(storedFloat(4), QStringLiteral("4.000000"));
    EXPECT_EQ(storedFloat(0.1), QStringLiteral("0.100000"));
    EXPECT_EQ(storedFloat(-2.5), QStringLiteral("-2.500000"));
    EXPECT_EQ(storedFloat(1234567.0), QStringLiteral("1234567.000000"));
}

} // namespace kestro
