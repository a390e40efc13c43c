#include "config_ui/ConfigControls.h"

#include <array>
#include <charconv>
#include <cmath>

namespace kestro {

QString fieldText(float value)
{
    if (!std::isfinite(value)) return QStringLiteral("0");
    std::array<char, 64> text{}; // the largest number has 39 digits, the smallest one 46 after its point
    const auto end = std::to_chars(text.begin(), text.end(), value, std::chars_format::fixed).ptr;
    return QString::fromLatin1(text.data(), end - text.data());
}

} // namespace kestro
