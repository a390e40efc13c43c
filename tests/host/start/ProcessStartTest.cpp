#include "host/start/ProcessStart.h"

#include "platform/base/ScopedEnvironment.h"

#include <clocale>
#include <gtest/gtest.h>

namespace kestro {

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
