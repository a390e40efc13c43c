#include "platform/base/ConfigurationFile.h"

#include "platform/base/Log.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

ConfigurationFile fileOf(const QByteArray& text)
{
    return {text, QStringLiteral("conf")};
}

QByteArray after(const QByteArray& text, const char* section, const char* key, const char* value)
{
    ConfigurationFile file = fileOf(text);
    file.set(QString::fromUtf8(section), QString::fromUtf8(key), QString::fromUtf8(value));
    return file.text();
}

} // namespace

TEST(ConfigurationFile, value_isThatOfItsSection_theLastOne)
{
    const auto file = fileOf("[a]\nkey=1\n key = \"2\" \n[b]\nkey=3\n");
    EXPECT_EQ(file.value(QStringLiteral("a"), QStringLiteral("key")), QStringLiteral("2"));
    EXPECT_EQ(file.value(QStringLiteral("b"), QStringLiteral("key")), QStringLiteral("3"));
    EXPECT_FALSE(file.value(QStringLiteral("c"), QStringLiteral("key")));
    EXPECT_FALSE(file.value(QStringLiteral("a"), QStringLiteral("kex")));
}

TEST(ConfigurationFile, set_changesTheOneLine_andKeepsEveryOtherByte)
{
    EXPECT_EQ(after("# mine\n[a]\nx = 1 \n\n;y\n[b]\nx=2\r\nnonsense", "a", "x", "7"),
              "# mine\n[a]\nx=7\n\n;y\n[b]\nx=2\r\nnonsense\n");
}

TEST(ConfigurationFile, set_addsTheKey_whereItsSectionEnds)
{
    EXPECT_EQ(after("[a]\nx=1\n\n# about b\n[b]\ny=2\n", "a", "z", "3"),
              "[a]\nx=1\nz=3\n\n# about b\n[b]\ny=2\n");
    EXPECT_EQ(after("[a]\n[b]\ny=2\n", "a", "z", "3"), "[a]\nz=3\n[b]\ny=2\n");
    EXPECT_EQ(after("[a]\nx=1", "a", "z", "3"), "[a]\nx=1\nz=3\n");
}

TEST(ConfigurationFile, set_addsTheSection_whereItIsMissing)
{
    EXPECT_EQ(after({}, "a", "x", "1"), "[a]\nx=1\n");
    EXPECT_EQ(after("[b]\ny=2\n", "a", "x", "1"), "[b]\ny=2\n\n[a]\nx=1\n");
    EXPECT_EQ(after("[b]\ny=2", "a", "x", "1"), "[b]\ny=2\n\n[a]\nx=1\n");
}

TEST(ConfigurationFile, keys_areThoseOfTheSection_eachOnce)
{
    const auto file = fileOf("[a]\nx=1\n[b]\nz=1\n[a]\ny=2\nx=3\n");
    EXPECT_EQ(file.keys(QStringLiteral("a")), (QStringList{QStringLiteral("x"), QStringLiteral("y")}));
    EXPECT_TRUE(file.keys(QStringLiteral("c")).isEmpty());
}

TEST(ConfigurationFile, remove_takesEveryLineOfTheKey_andKeepsEveryOtherByte)
{
    auto file = fileOf("; c\n[a]\n x = 1\ny=2\n[b]\nx=1\n[a]\nx=3");
    file.remove(QStringLiteral("a"), QStringLiteral("x"));
    EXPECT_EQ(file.text(), "; c\n[a]\ny=2\n[b]\nx=1\n[a]");
    EXPECT_FALSE(file.value(QStringLiteral("a"), QStringLiteral("x")));
}

TEST(ConfigurationFile, set_isReadBack)
{
    ConfigurationFile file = fileOf("[b]\ny=2\n");
    file.set(QStringLiteral("a"), QStringLiteral("x"), QStringLiteral("1"));
    file.set(QStringLiteral("a"), QStringLiteral("x"), QStringLiteral("5"));
    EXPECT_EQ(file.value(QStringLiteral("a"), QStringLiteral("x")), QStringLiteral("5"));
    EXPECT_EQ(file.text(), "[b]\ny=2\n\n[a]\nx=5\n");
}

TEST(ConfigurationFile, warns_withTheNumberOfTheLine)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    const auto file = fileOf("[a]\nnonsense\nx=1\ny=2\n");
    file.warnAboutUnknown(QStringLiteral("a"), {QStringLiteral("y")});
    file.warnAbout(QStringLiteral("a"), QStringLiteral("y"), QStringLiteral("no number"));
    EXPECT_EQ(said, (QStringList{QStringLiteral("conf, line 2: no \"key=value\"."),
                                 QStringLiteral("conf, line 3: unknown key \"x\"."),
                                 QStringLiteral("conf, line 4: no number.")}));
}

TEST(ConfigurationFile, place_isTheLineThatCounts)
{
    const auto file = fileOf("[a]\nx=1\n[b]\nx=2\n[a]\nx=3\n");
    EXPECT_EQ(file.placeOf(QStringLiteral("a"), QStringLiteral("x")), QStringLiteral("conf:6"));
    EXPECT_TRUE(file.placeOf(QStringLiteral("a"), QStringLiteral("y")).isEmpty());
}

TEST(ConfigurationFile, value_isDoubted_onceSomebodyHasSaidSo)
{
    const LogCapture capture([](const QString&) {});
    const auto file = fileOf("[a]\nx=1\ny=2\n");
    file.warnAbout(QStringLiteral("a"), QStringLiteral("x"), QStringLiteral("no number"));
    EXPECT_TRUE(file.isDoubted(QStringLiteral("a"), QStringLiteral("x")));
    EXPECT_FALSE(file.isDoubted(QStringLiteral("a"), QStringLiteral("y")));
}

TEST(ConfigurationFile, change_isWritten_inAFolderThatIsMade)
{
    const QTemporaryDir home;
    const QString path = home.filePath(QStringLiteral("a/b/conf"));
    const auto change = [](ConfigurationFile& file) {
        file.set(QStringLiteral("a"), QStringLiteral("x"), QStringLiteral("1"));
    };
    ASSERT_TRUE(changeConfiguration(path, change).isOk());
    EXPECT_EQ(ConfigurationFile::at(path).text(), "[a]\nx=1\n");
}

TEST(ConfigurationFile, file_isLeftAsItIs_whenItCannotBeRead)
{
    const LogCapture capture([](const QString&) {});
    const QTemporaryDir home;
    int changes = 0;
    const auto stored = changeConfiguration(home.path(), [&changes](ConfigurationFile&) { ++changes; });
    ASSERT_FALSE(stored.isOk());
    EXPECT_EQ(stored.error(), home.path() + QStringLiteral(" cannot be read, so it is left as it is"));
    EXPECT_EQ(changes, 0);
}

TEST(ConfigurationFile, isYes_isThatAlone_withALineForAnythingElse)
{
    QStringList said;
    const LogCapture capture([&](const QString& line) { said.append(line); });
    const auto file = fileOf("[a]\non=yes\noff=no\nodd=true\n");
    EXPECT_TRUE(file.isYes(QStringLiteral("a"), QStringLiteral("on")));
    EXPECT_FALSE(file.isYes(QStringLiteral("a"), QStringLiteral("off")));
    EXPECT_FALSE(file.isYes(QStringLiteral("a"), QStringLiteral("missing")));
    EXPECT_TRUE(said.isEmpty());
    EXPECT_FALSE(file.isYes(QStringLiteral("a"), QStringLiteral("odd")));
    EXPECT_EQ(said, QStringList{QStringLiteral("conf, line 4: \"true\" is neither yes nor no.")});
}

} // namespace kestro
