#include "platform/display/surface/KeySymbols.h"

#include <gtest/gtest.h>

namespace kestro {

using Key = InputEvent::Key;

static constexpr std::uint32_t anywhere = 9;

TEST(KeySymbols, keys_areToldByTheirSymbols)
{
    EXPECT_EQ(keyOfSymbol(0xff51, anywhere), Key::Left);
    EXPECT_EQ(keyOfSymbol(0xff52, anywhere), Key::Up);
    EXPECT_EQ(keyOfSymbol(0xff53, anywhere), Key::Right);
    EXPECT_EQ(keyOfSymbol(0xff54, anywhere), Key::Down);
    for (const std::uint32_t symbol : {'d', 'D'})
        EXPECT_EQ(keyOfSymbol(symbol, anywhere), Key::D);
    for (const std::uint32_t symbol : {'i', 'I'})
        EXPECT_EQ(keyOfSymbol(symbol, anywhere), Key::I);
    for (const std::uint32_t symbol : {'u', 'U'})
        EXPECT_EQ(keyOfSymbol(symbol, anywhere), Key::U);
}

TEST(KeySymbols, letters_areToldByTheirPlaces_whereTheLayoutHasAnotherScript)
{
    EXPECT_EQ(keyOfSymbol(0x6c7, 30), Key::U); // Cyrillic, by its old number
    EXPECT_EQ(keyOfSymbol(0x1000448, 31), Key::I);
    EXPECT_EQ(keyOfSymbol(0x7e4, 40), Key::D); // Greek
    EXPECT_EQ(keyOfSymbol(0x1000448, 32), Key::Other);
}

TEST(KeySymbols, keysOfOtherNames_areOthers_atThosePlacesToo)
{
    for (const std::uint32_t symbol :
         {std::uint32_t{0}, std::uint32_t{'c'}, std::uint32_t{0xe9}, std::uint32_t{0xff1b},
          std::uint32_t{0xffe1}, std::uint32_t{0x1008ff13}})
        EXPECT_EQ(keyOfSymbol(symbol, 31), Key::Other) << symbol;
}

} // namespace kestro
