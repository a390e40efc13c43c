#include "engine/SignWords.h"

#include "platform/display/view/Picture.h"

#include <QCoreApplication>
#include <QTranslator>

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// Puts one text in the place of every other.
class OneText final : public QTranslator {
public:
    explicit OneText(QString text)
        : m_text(std::move(text))
    {
        QCoreApplication::installTranslator(this);
    }
    ~OneText() override { QCoreApplication::removeTranslator(this); }
    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char* context, const char*, const char*, int) const override
    {
        return qstrcmp(context, "Kestro") == 0 ? m_text : QString();
    }

private:
    QString m_text;
};

QImage drawn(const SignWords& words)
{
    Picture sign{QImage(840, 520, QImage::Format_ARGB32_Premultiplied), {420, 260}};
    sign.image.fill(Qt::black);
    drawWords(sign, words);
    return sign.image;
}

/// What is not black, in points.
QRect inkIn(const QImage& image, int top, int bottom)
{
    QRect ink;
    for (int y = 2 * top; y < 2 * bottom; ++y)
        for (int x = 0; x < image.width(); ++x)
            if (qGray(image.pixel(x, y)) > 60) ink |= QRect(x / 2, y / 2, 1, 1);
    return ink;
}

constexpr SignWords words{"No movie selected", "Add movies"};

} // namespace

TEST(SignWords, words_areTwoLinesInTheMiddleOfTheLowerPart)
{
    const QImage image = drawn(words);
    EXPECT_TRUE(inkIn(image, 0, 165).isEmpty());
    const QRect title = inkIn(image, 165, 202);
    const QRect hint = inkIn(image, 202, 260);
    EXPECT_GT(title.width(), hint.width());
    for (const QRect& line : {title, hint}) {
        EXPECT_GT(line.width(), 60);
        EXPECT_NEAR(line.center().x(), 210, 4);
    }
    EXPECT_LT(hint.bottom(), 240);
}

TEST(SignWords, words_areInThePersonsLanguage)
{
    const QImage before = drawn(words);
    const OneText german(QStringLiteral("Kein Film"));
    EXPECT_NE(drawn(words), before);
    EXPECT_EQ(drawn(words), drawn({"other", "other"}));
}

TEST(SignWords, longWords_areWrittenSmaller_withinTheSign)
{
    const OneText german(QStringLiteral("Filme lassen sich in den Einstellungen der Anwendung hinzufügen"));
    const QImage image = drawn(words);
    for (const QRect& line : {inkIn(image, 165, 202), inkIn(image, 202, 260)}) {
        EXPECT_GE(line.left(), 30);
        EXPECT_LE(line.right(), 390);
        EXPECT_GT(line.width(), 300);
    }
}

// A letter of a script that no font here has: the last of Unicode's private ones.
TEST(SignWords, words_areThoseOfTheCode_whereNoFontHasTheLetters)
{
    const QImage own = drawn(words);
    const OneText unknown(QString::fromUcs4(U"\U0010FFFD\U0010FFFC"));
    EXPECT_EQ(drawn(words), own);
}

} // namespace kestro
