#include "idle/KeyOptions.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <gtest/gtest.h>

namespace kestro {

static KeyOptions optionsOf(const QByteArray& text)
{
    return KeyOptions::from(ConfigurationFile(text, QStringLiteral("conf")));
}

TEST(KeyOptions, areWhatTheFileSays)
{
    EXPECT_FALSE(optionsOf({}).isEnabled);
    EXPECT_FALSE(optionsOf("[keys]\nenabled=no\n").isEnabled);
    EXPECT_TRUE(optionsOf("[keys]\nenabled=yes\n").isEnabled);
}

TEST(KeyOptions, keyThatIsUnknown_isLogged)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    EXPECT_FALSE(optionsOf("[keys]\nnext=right\n").isEnabled);
    EXPECT_EQ(said, QStringList{QStringLiteral("conf, line 2: unknown key \"next\".")});
}

} // namespace kestro
