#include "platform/base/JsonNumber.h"

#include <array>
#include <charconv>

namespace kestro {

double shortestReal(float value)
{
    std::array<char, 64> digits{};
    const auto written = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    double result = value;
    std::from_chars(digits.data(), written.ptr, result);
    return result;
}

} // namespace kestro
