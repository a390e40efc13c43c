#include "platform/base/StateFolder.h"

#include "platform/base/ScopedEnvironment.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(StateFolder, stateFolder_isTheDesktops)
{
    const ScopedEnvironment home("HOME", "/home/ada");
    const ScopedEnvironment own("KESTRO_HOME", "");
    {
        const ScopedEnvironment state("XDG_STATE_HOME", "/states/");
        EXPECT_EQ(stateFolder(), QStringLiteral("/states/kestro"));
    }
    for (const char* unset : {"", "states"}) {
        const ScopedEnvironment state("XDG_STATE_HOME", unset);
        EXPECT_EQ(stateFolder(), QStringLiteral("/home/ada/.local/state/kestro")) << unset;
    }
}

TEST(StateFolder, stateFolder_isInTheHomeThatWasChosen)
{
    const ScopedEnvironment own("KESTRO_HOME", "/elsewhere");
    const ScopedEnvironment state("XDG_STATE_HOME", "/states");
    EXPECT_EQ(stateFolder(), QStringLiteral("/elsewhere/.local/state/kestro"));
}

} // namespace kestro
