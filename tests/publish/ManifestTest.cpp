#include "publish/Manifest.h"

#include <gtest/gtest.h>

namespace kestro {
namespace {

SourceMovie waves()
{
    return {QStringLiteral("waves.mov"), 5'000'000'000, 1'700'000'000'123, 480, 204, 12.5};
}

/// As a walk through the folder finds it: not yet looked into.
SourceMovie found(qint64 bytes, qint64 modified)
{
    return {QStringLiteral("waves.mov"), bytes, modified, 0, 0, 0};
}

Manifest reread(const Manifest& manifest)
{
    auto result = Manifest::parse(manifest.json());
    EXPECT_TRUE(result.isOk());
    return result ? result.value() : Manifest();
}

TEST(Manifest, keepsFilesWithTheirOrigins)
{
    Manifest manifest;
    manifest.setFile(QStringLiteral("waves/poster.jpg"), QStringLiteral("origin"));
    manifest.setFile(QStringLiteral("index.html"), {});
    EXPECT_EQ(reread(manifest).files(), manifest.files());
}

TEST(Manifest, recallsAMovie_whenItsFileIsInTheSameState)
{
    Manifest manifest;
    manifest.setMovies({waves()});
    SourceMovie movie = found(5'000'000'000, 1'700'000'000'123);
    ASSERT_TRUE(reread(manifest).recall(movie));
    EXPECT_EQ(movie.width, 480);
    EXPECT_EQ(movie.height, 204);
    EXPECT_EQ(movie.seconds, 12.5);
}

TEST(Manifest, recallsNothing_whenTheFileChanged)
{
    Manifest manifest;
    manifest.setMovies({waves()});
    SourceMovie longer = found(5'000'000'001, 1'700'000'000'123);
    SourceMovie newer = found(5'000'000'000, 1'700'000'000'124);
    EXPECT_FALSE(reread(manifest).recall(longer));
    EXPECT_FALSE(reread(manifest).recall(newer));
}

TEST(Manifest, isRefused_whenItIsDamaged)
{
    for (const char* json : {"", "[]", "{}", "{\"files\": [", "{\"files\": 3}"})
        EXPECT_FALSE(Manifest::parse(json).isOk()) << json;
}

TEST(Manifest, isRefused_whenItNamesWhatWeNeverWrite)
{
    for (const char* name : {"../secret.txt", "/etc/passwd.txt", "a/../b.txt", "a/b/c.txt", ".hidden.txt",
                             "A.txt", "x", "a/.b.txt", "a.txt\\n"}) {
        const QByteArray json = QByteArray(R"({"files": {")") + name + R"(": ""}})";
        EXPECT_FALSE(Manifest::parse(json).isOk()) << name;
    }
}

} // namespace
} // namespace kestro
