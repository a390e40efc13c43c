#include "host/start/ProcessStart.h"

#include "platform/base/ScopedEnvironment.h"

#include <clocale>
#include <cstdlib>
#include <gtest/gtest.h>
#include <malloc.h>

namespace kestro {

namespace {

/// How much of what is held is not part of any heap, in bytes, while a block of that size is there.
std::size_t outsideOfHeaps(std::size_t size)
{
    void* volatile const block = std::malloc(size); // volatile: else the compiler does without it
    const std::size_t held = mallinfo2().hblkhd;
    std::free(block);
    return held;
}

} // namespace

TEST(ProcessStart, largeBlocks_areGivenBackAtOnce_howeverManyLargerOnesThereWere)
{
    constexpr std::size_t picture = 1920 * 1080 * 4;
    if (mallinfo2().arena == 0) GTEST_SKIP() << "memory is not glibc's here";
    prepareProcess();
    const std::size_t before = mallinfo2().hblkhd;
    EXPECT_GE(outsideOfHeaps(picture), before + picture);
    EXPECT_GE(outsideOfHeaps(picture / 2), before + picture / 2);
    EXPECT_EQ(mallinfo2().hblkhd, before);
}

TEST(ProcessStart, datesStayThePersons_whenOnlyTheCharactersNeedAnotherLocale)
{
    const ScopedEnvironment all("LC_ALL", QString());
    const ScopedEnvironment characters("LC_CTYPE", QStringLiteral("C"));
    const ScopedEnvironment language("LANG", QStringLiteral("de_DE.UTF-8"));
    prepareProcess();
    EXPECT_EQ(qEnvironmentVariable("LC_CTYPE"), QStringLiteral("C.UTF-8"));
    EXPECT_EQ(qEnvironmentVariable("LC_ALL"), QString());
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C.UTF-8");
}

TEST(ProcessStart, charactersAreUtf8_whenOneLocaleIsSetForAll)
{
    const ScopedEnvironment all("LC_ALL", QStringLiteral("C"));
    prepareProcess();
    EXPECT_EQ(qEnvironmentVariable("LC_ALL"), QStringLiteral("C.UTF-8"));
}

TEST(ProcessStart, localeStays_whenItIsUtf8)
{
    const ScopedEnvironment all("LC_ALL", QString());
    const ScopedEnvironment characters("LC_CTYPE", QStringLiteral("C.UTF-8"));
    const ScopedEnvironment language("LANG", QStringLiteral("fr_FR.UTF-8"));
    prepareProcess();
    EXPECT_EQ(qEnvironmentVariable("LC_CTYPE"), QStringLiteral("C.UTF-8"));
    EXPECT_EQ(qEnvironmentVariable("LC_ALL"), QString());
}

TEST(ProcessStart, words_areTheArgumentsWithoutTheProgramsName)
{
    char program[] = "kestro";
    char first[] = "--movie";
    char second[] = "\xc3\xa4.mov";
    char* words[] = {program, first, second};
    EXPECT_EQ(wordsFrom(3, words), QStringList({QStringLiteral("--movie"), QStringLiteral("ä.mov")}));
    EXPECT_EQ(wordsFrom(1, words), QStringList());
}

} // namespace kestro
