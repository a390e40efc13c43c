#include "engine/CaptionPicture.h"

#include <QFont>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace kestro {

namespace {

// Of the size of the title's letters.
constexpr double clockShare = 2.1;
constexpr double detailShare = 0.78;
constexpr double gapShare = 0.8; ///< between clock and lines
constexpr double shadowShare = 0.16;

constexpr int shadowPasses = 2;
constexpr int shadowGain = 4;
constexpr int shadowMost = 225; ///< alpha

/// One text where it is to be drawn, in pixels from the picture's upper left corner.
struct Line {
    QFont font;
    QString text;
    double width = 0;
    double left = 0;
    double baseline = 0;
};

QFont fontOf(double letters, QFont::Weight weight)
{
    QFont font;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(letters))));
    font.setWeight(weight);
    return font;
}

Line lineOf(const QFont& font, const QString& text, double widest)
{
    const QFontMetricsF metrics(font);
    const QString shown = metrics.elidedText(text, Qt::ElideMiddle, widest);
    return {font, shown, metrics.horizontalAdvance(shown), 0, 0};
}

double heightOf(const Line& line)
{
    return line.text.isEmpty() ? 0 : QFontMetricsF(line.font).height();
}

/// The texts side by side and below one another, and how much room they take.
struct Layout {
    Line clock;
    Line title;
    Line detail;
    QSizeF room;

    Layout(const CaptionLines& lines, double letters, double widest);
    void place(double margin);
};

Layout::Layout(const CaptionLines& lines, double letters, double widest)
    : clock(lineOf(fontOf(letters * clockShare, QFont::Normal), lines.clock, widest))
    , title(lineOf(fontOf(letters, QFont::DemiBold), lines.title, widest))
    , detail(lineOf(fontOf(letters * detailShare, QFont::Normal), lines.detail, widest))
{
    const double beside = std::max(title.width, detail.width);
    const double gap = clock.width > 0 && beside > 0 ? letters * gapShare : 0;
    title.left = detail.left = clock.width + gap;
    room = {clock.width + gap + beside, std::max(heightOf(clock), heightOf(title) + heightOf(detail))};
}

void Layout::place(double margin)
{
    const double top = margin + (room.height() - heightOf(title) - heightOf(detail)) / 2;
    clock.baseline = margin + (room.height() - heightOf(clock)) / 2 + QFontMetricsF(clock.font).ascent();
    title.baseline = top + QFontMetricsF(title.font).ascent();
    detail.baseline = top + heightOf(title) + QFontMetricsF(detail.font).ascent();
    for (Line* line : {&clock, &title, &detail})
        line->left += margin;
}

void draw(QImage& image, const Layout& layout)
{
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing);
    painter.setPen(Qt::white);
    for (const Line* line : {&layout.clock, &layout.title, &layout.detail}) {
        painter.setFont(line->font);
        painter.drawText(QPointF(line->left, line->baseline), line->text);
    }
}

/// Has each of `count` bytes, `stride` apart, become the mean of those that are within `reach` of it.
void blurLine(uchar* line, int count, qsizetype stride, int reach, std::vector<uchar>& copy)
{
    for (int i = 0; i < count; ++i)
        copy[static_cast<std::size_t>(i)] = line[i * stride];
    const auto at = [&copy, count](int i) {
        return i >= 0 && i < count ? int{copy[static_cast<std::size_t>(i)]} : 0;
    };
    int sum = 0;
    for (int i = 0; i < reach; ++i)
        sum += at(i);
    for (int i = 0; i < count; ++i) {
        sum += at(i + reach) - at(i - reach - 1);
        line[i * stride] = static_cast<uchar>(sum / (2 * reach + 1));
    }
}

void blur(QImage& mask, int reach)
{
    std::vector<uchar> copy(static_cast<std::size_t>(std::max(mask.width(), mask.height())));
    for (int pass = 0; pass < shadowPasses; ++pass) {
        for (int y = 0; y < mask.height(); ++y)
            blurLine(mask.scanLine(y), mask.width(), 1, reach, copy);
        for (int x = 0; x < mask.width(); ++x)
            blurLine(mask.bits() + x, mask.height(), mask.bytesPerLine(), reach, copy);
    }
}

/// Black below the ink and around it.
QImage shadowOf(const QImage& ink, int reach)
{
    QImage mask = ink.convertToFormat(QImage::Format_Alpha8);
    blur(mask, reach);
    QImage shadow(ink.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < shadow.height(); ++y) {
        const uchar* const from = mask.constScanLine(y);
        auto* const to = reinterpret_cast<QRgb*>(shadow.scanLine(y));
        for (int x = 0; x < shadow.width(); ++x)
            to[x] = qRgba(0, 0, 0, std::min(shadowGain * from[x], shadowMost));
    }
    return shadow;
}

} // namespace

Picture captionPicture(const CaptionLines& lines, const CaptionSize& size)
{
    if (lines.isEmpty()) return {};
    const double letters = size.letters * size.pixelRatio;
    Layout layout(lines, letters, size.widest * size.pixelRatio);
    const int reach = std::max(1, static_cast<int>(std::lround(letters * shadowShare)));
    const int margin = shadowPasses * reach + 1;
    layout.place(margin);
    const QSize pixels(static_cast<int>(std::ceil(layout.room.width())) + 2 * margin,
                       static_cast<int>(std::ceil(layout.room.height())) + 2 * margin);
    QImage ink(pixels, QImage::Format_ARGB32_Premultiplied);
    ink.fill(Qt::transparent);
    draw(ink, layout);
    QImage image = shadowOf(ink, reach);
    QPainter(&image).drawImage(0, 0, ink);
    return {image,
            {static_cast<float>(pixels.width() / size.pixelRatio),
             static_cast<float>(pixels.height() / size.pixelRatio)}};
}

} // namespace kestro
