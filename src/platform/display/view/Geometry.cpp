#include "platform/display/view/Geometry.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace kestro {

namespace {

QString textOf(float number)
{
    if (!std::isfinite(number)) return QStringLiteral("0");
    std::array<char, 64> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

} // namespace

Rect unionRect(const Rect& a, const Rect& b)
{
    if (a.isEmpty()) return b.isEmpty() ? Rect{} : b;
    if (b.isEmpty()) return a;
    const float left = std::min(a.left(), b.left());
    const float bottom = std::min(a.bottom(), b.bottom());
    return {{left, bottom}, {std::max(a.right(), b.right()) - left, std::max(a.top(), b.top()) - bottom}};
}

Rect intersectionRect(const Rect& a, const Rect& b)
{
    const float left = std::max(a.left(), b.left());
    const float bottom = std::max(a.bottom(), b.bottom());
    const Rect both{{left, bottom},
                    {std::min(a.right(), b.right()) - left, std::min(a.top(), b.top()) - bottom}};
    return both.isEmpty() ? Rect{} : both;
}

std::vector<Rect> subtractRect(const std::vector<Rect>& rects, const Rect& hole)
{
    std::vector<Rect> left;
    const auto keep = [&left](float x, float y, float right, float top) {
        if (right > x && top > y) left.push_back({{x, y}, {right - x, top - y}});
    };
    for (const Rect& rect : rects) {
        const Rect cut = intersectionRect(rect, hole);
        if (cut.isEmpty()) {
            left.push_back(rect);
            continue;
        }
        keep(rect.left(), rect.bottom(), rect.right(), cut.bottom());
        keep(rect.left(), cut.top(), rect.right(), rect.top());
        keep(rect.left(), cut.bottom(), cut.left(), cut.top());
        keep(cut.right(), cut.bottom(), rect.right(), cut.top());
    }
    return left;
}

QString stringFromPoint(Point point)
{
    return QStringLiteral("{%1, %2}").arg(textOf(point.x), textOf(point.y));
}

Point pointFromString(const QString& text)
{
    static const QRegularExpression form(QStringLiteral(
        R"(^\s*\{\s*([+-]?[0-9.]+(?:[eE][+-]?[0-9]+)?)\s*,\s*([+-]?[0-9.]+(?:[eE][+-]?[0-9]+)?)\s*\}\s*$)"));
    const auto match = form.match(text);
    if (!match.hasMatch()) return {};
    bool xIsNumber = false;
    bool yIsNumber = false;
    const Point point{match.captured(1).toFloat(&xIsNumber), match.captured(2).toFloat(&yIsNumber)};
    return xIsNumber && yIsNumber ? point : Point{};
}

} // namespace kestro
