#include "settings/CacheOptions.h"

#include "platform/base/ConfigurationFile.h"
#include "platform/base/Log.h"

#include <gtest/gtest.h>

namespace kestro {

static qint64 bytesOf(const QByteArray& text)
{
    return cacheOptionsFrom(ConfigurationFile(text, QStringLiteral("conf"))).bytes;
}

TEST(CacheOptions, size_isWhatTheFileSays)
{
    EXPECT_EQ(bytesOf({}), 0);
    EXPECT_EQ(bytesOf("[movies]\nsize=2 GB\n"), 0);
    for (const auto& [text, bytes] : {std::pair{"0", 0LL}, std::pair{"2 GB", 2'000'000'000LL},
                                      std::pair{"500 MB", 500'000'000LL}, std::pair{"1.5gb", 1'500'000'000LL},
                                      std::pair{"\"1 TB\"", 1'000'000'000'000LL}, std::pair{"0 MB", 0LL}})
        EXPECT_EQ(bytesOf(QByteArray("[cache]\nsize=") + text + "\n"), bytes) << text;
}

TEST(CacheOptions, size_isNone_withALine_whereItIsNotUnderstood)
{
    for (const char* text :
         {"yes", "500", "-1 GB", "GB", "nan MB", "inf TB", "1,5 GB", "101 TB", "5 KB", "5 GBs"}) {
        QStringList said;
        const LogCapture capture([&](const QString& line) { said.append(line); });
        EXPECT_EQ(bytesOf(QByteArray("[cache]\nsize=") + text + "\n"), 0) << text;
        EXPECT_EQ(said, QStringList(QStringLiteral(
                                        "conf, line 2: \"%1\" is neither 0 nor a size as in 500 MB or 2 GB.")
                                        .arg(QLatin1String(text))));
    }
}

TEST(CacheOptions, unknownKey_isTold)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    EXPECT_EQ(bytesOf("[cache]\nbytes=5\n"), 0);
    EXPECT_EQ(said.size(), 1);
}

} // namespace kestro
