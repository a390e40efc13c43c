#include "platform/display/surface/KeySymbols.h"

namespace kestro {

namespace {

/// Symbols below are those of Latin-1, as characters.
constexpr std::uint32_t latinEnd = 0x100;
/// Symbols that are no characters: arrows, modifiers, what media keys have.
constexpr std::uint32_t functionsBegin = 0xfd00;
constexpr std::uint32_t functionsEnd = 0x1000000;
constexpr std::uint32_t mediaBegin = 0x10000000;

InputEvent::Key keyAtPlace(std::uint32_t code)
{
    switch (code) {
    case 30:
        return InputEvent::Key::U;
    case 31:
        return InputEvent::Key::I;
    case 40:
        return InputEvent::Key::D;
    default:
        return InputEvent::Key::Other;
    }
}

bool isLetterElsewhere(std::uint32_t symbol)
{
    const bool isFunction = (symbol >= functionsBegin && symbol < functionsEnd) || symbol >= mediaBegin;
    return symbol >= latinEnd && !isFunction;
}

} // namespace

InputEvent::Key keyOfSymbol(std::uint32_t symbol, std::uint32_t code)
{
    switch (symbol) {
    case 0xff51:
        return InputEvent::Key::Left;
    case 0xff52:
        return InputEvent::Key::Up;
    case 0xff53:
        return InputEvent::Key::Right;
    case 0xff54:
        return InputEvent::Key::Down;
    case 'D':
    case 'd':
        return InputEvent::Key::D;
    case 'I':
    case 'i':
        return InputEvent::Key::I;
    case 'U':
    case 'u':
        return InputEvent::Key::U;
    default:
        return isLetterElsewhere(symbol) ? keyAtPlace(code) : InputEvent::Key::Other;
    }
}

} // namespace kestro
