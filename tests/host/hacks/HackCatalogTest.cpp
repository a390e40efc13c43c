#include "host/hacks/HackCatalog.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class HackCatalog : public testing::Test {
protected:
    void describe(const char* file, const QByteArray& text)
    {
        QFile description(m_descriptions.filePath(QString::fromLatin1(file)));
        ASSERT_TRUE(description.open(QIODevice::WriteOnly));
        description.write(text);
    }
    void install(const char* program)
    {
        const QString path = m_programs.filePath(QString::fromLatin1(program));
        ASSERT_TRUE(QFile::copy(QStringLiteral("/bin/true"), path));
    }
    [[nodiscard]] QList<InstalledHack> found() const
    {
        return installedHacks({m_descriptions.path(), QStringLiteral("/nowhere")}, {m_programs.path()});
    }

    QTemporaryDir m_descriptions;
    QTemporaryDir m_programs;
};

} // namespace

TEST_F(HackCatalog, hack_isWhatItsDescriptionSays)
{
    install("moebius");
    describe("moebius.xml", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n"
                            "<screensaver name=\"moebius\" _label=\"M\xf6"
                            "bius\" gl=\"yes\">\n"
                            "<command arg=\"--root --mode  'two words' -root\"/>\n"
                            "<number id=\"delay\" arg=\"--delay %\" default=\"20000\"/>\n"
                            "<boolean id=\"x\" arg-set=\"--x\"/></screensaver>");
    const auto hacks = found();
    ASSERT_EQ(hacks.size(), 1);
    EXPECT_EQ(hacks[0].name, QStringLiteral("moebius"));
    EXPECT_EQ(hacks[0].label, QString::fromUtf8("Möbius"));
    EXPECT_EQ(hacks[0].hack.program, m_programs.filePath(QStringLiteral("moebius")));
    EXPECT_EQ(hacks[0].hack.arguments, (QStringList{QStringLiteral("--mode"), QStringLiteral("two words")}));
    EXPECT_TRUE(hacks[0].hack.drawsOpenGL);
}

TEST_F(HackCatalog, hacks_areThoseWhoseProgramIsInstalled_sorted)
{
    for (const char* name : {"b", "a", "c"})
        describe(name, "");
    for (const QByteArray name : {"b", "a", "c"})
        describe(name + ".xml",
                 "<screensaver name=\"" + name + "\" gl=\"no\"><command arg=\"--root\"/></screensaver>");
    install("b");
    install("a");
    const auto hacks = found();
    ASSERT_EQ(hacks.size(), 2);
    EXPECT_EQ(hacks[0].name, QStringLiteral("a"));
    EXPECT_EQ(hacks[0].label, QStringLiteral("a")) << "one without a label goes by its name";
    EXPECT_FALSE(hacks[0].hack.drawsOpenGL);
    EXPECT_EQ(hacks[1].name, QStringLiteral("b"));
}

TEST_F(HackCatalog, description_countsAsNone_whenItCannotBeRead)
{
    install("a");
    install("kestro");
    for (const char* text :
         {"", "no xml", "<screensaver name=\"a\">", "<screensaver/>", "<screensaver name=\"../a\"/>",
          "<screensaver name=\"kestro\" _label=\"Kestro\"/>"}) {
        describe("a.xml", text);
        EXPECT_TRUE(found().isEmpty()) << text;
    }
}

} // namespace kestro
