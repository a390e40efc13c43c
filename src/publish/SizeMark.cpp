#include "publish/SizeMark.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace kestro {

namespace {

// Widths, and heights that stand for a width whatever the height of the picture in it is.
constexpr std::array usualSizes = {240, 320, 360,  480,  540,  576,  640,  720, 848,
                                   854, 960, 1080, 1280, 1440, 1920, 2160, 3840};

/// A number with what may stand around it, or a word; before it a separator, a bracket or nothing.
const QRegularExpression& markPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral(
            "^(?:(?<base>.*?)(?:[\\s._-]+|(?=[(\\[])))?[(\\[]?"
            "(?:(?<before>[hw]?)(?<number>\\d{3,4})(?<after>p|i|w|px|x\\d{3,4})?|(?<word>sd|hd|uhd|4k))"
            "[)\\]]?$"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
    return pattern;
}

} // namespace

std::optional<SizeMark> sizeMark(const QString& name)
{
    const auto match = markPattern().match(name.trimmed());
    if (!match.hasMatch()) return {};
    SizeMark mark;
    mark.base = match.captured(QStringLiteral("base")).trimmed();
    mark.number = match.captured(QStringLiteral("number")).toInt();
    mark.isPlain = mark.number > 0 && match.captured(QStringLiteral("before")).isEmpty() &&
                   match.captured(QStringLiteral("after")).isEmpty();
    return mark;
}

bool isSizeOf(int number, int width, int height)
{
    return number == width || number == height || std::ranges::find(usualSizes, number) != usualSizes.end();
}

} // namespace kestro
