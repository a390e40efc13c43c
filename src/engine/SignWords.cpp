#include "engine/SignWords.h"

#include "platform/display/view/Picture.h"

#include <QCoreApplication>
#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace kestro {

namespace {

/// One line of a sign, in points from its upper left corner.
struct Line {
    double baseline;
    double letters; ///< pixel size of its font
    QRgb colour;
};

constexpr Line titleLine{192, 25, 0xfffff6ea};
constexpr Line hintLine{222, 16, 0xffdcd7ff};
constexpr double widest = 350;
constexpr double smallest = 9; ///< letters

bool hasLetters(const QFont& font, const QString& text)
{
    const QFontMetricsF metrics(font);
    const auto letters = text.toUcs4();
    return std::all_of(letters.begin(), letters.end(),
                       [&metrics](char32_t letter) { return metrics.inFontUcs4(letter); });
}

QString inOwnLanguage(const QFont& font, const char* text)
{
    const QString translated = QCoreApplication::translate("Kestro", text);
    return hasLetters(font, translated) ? translated : QString::fromLatin1(text);
}

QFont fontOf(double letters)
{
    QFont font;
    font.setStyleHint(QFont::SansSerif);
    font.setPixelSize(static_cast<int>(letters));
    return font;
}

void drawLine(QPainter& painter, double width, const Line& line, const char* source)
{
    const QString text = inOwnLanguage(fontOf(line.letters), source);
    double letters = line.letters;
    while (letters > smallest && QFontMetricsF(fontOf(letters)).horizontalAdvance(text) > widest)
        --letters;
    const QFont font = fontOf(letters);
    const double left = (width - QFontMetricsF(font).horizontalAdvance(text)) / 2;
    painter.setFont(font);
    painter.setPen(QColor::fromRgb(line.colour));
    painter.drawText(QPointF(left, line.baseline), text);
}

} // namespace

void drawWords(Picture& sign, const SignWords& words)
{
    const auto width = static_cast<double>(sign.size.width);
    QPainter painter(&sign.image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.scale(sign.image.width() / width, sign.image.width() / width);
    drawLine(painter, width, titleLine, words.title);
    drawLine(painter, width, hintLine, words.hint);
}

} // namespace kestro
