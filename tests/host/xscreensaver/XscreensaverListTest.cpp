#include "host/xscreensaver/XscreensaverList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class XscreensaverListTest : public testing::Test {
protected:
    void write(const QByteArray& text) const
    {
        QFile written(file());
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.write(text);
    }
    [[nodiscard]] QByteArray text() const { return read(file()); }
    [[nodiscard]] static QByteArray read(const QString& path)
    {
        QFile readFile(path);
        return readFile.open(QIODevice::ReadOnly) ? readFile.readAll() : QByteArray();
    }
    [[nodiscard]] QString file() const { return home.filePath(QStringLiteral(".xscreensaver")); }
    [[nodiscard]] XscreensaverList list(const QString& program = QStringLiteral("/opt/some/bin/kestro")) const
    {
        return {file(), program, everybodys()};
    }
    [[nodiscard]] QString everybodys() const { return home.filePath(QStringLiteral("XScreenSaver")); }
    /// As the package makes it.
    void listForEverybody(const QByteArray& entry = "kestro --root") const
    {
        QFile written(everybodys());
        ASSERT_TRUE(written.open(QIODevice::WriteOnly));
        written.write("! Resources\n*mode:\trandom\n*programs:\t\\\n\t" + entry +
                      "\t \\n\\\n  GL: \tpipes --root\t \\n\n*hacks.pipes.name: Pipes\n");
    }

    QTemporaryDir home;
};

} // namespace

TEST_F(XscreensaverListTest, isListed_isFalse_whenThereIsNoFile)
{
    const auto listed = list().isListed();
    ASSERT_TRUE(listed);
    EXPECT_FALSE(listed.value());
}

TEST_F(XscreensaverListTest, add_makesTheFile_andRemoveTakesTheEntryOut)
{
    QFile program(home.filePath(QStringLiteral("kestro")));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    const XscreensaverList own = list(program.fileName());
    const auto added = own.add();
    ASSERT_TRUE(added);
    EXPECT_TRUE(added.value().isChanged);
    EXPECT_EQ(added.value().backup, QString());
    EXPECT_TRUE(text().contains(QFile::encodeName(program.fileName()) + " --root"));
    EXPECT_TRUE(own.isListed().value());
    const auto removed = own.remove();
    ASSERT_TRUE(removed);
    EXPECT_TRUE(removed.value().isChanged);
    EXPECT_FALSE(own.isListed().value());
}

TEST_F(XscreensaverListTest, add_keepsTheFileAsItWas_whenThereIsOne)
{
    const QByteArray before = "programs:\\\n  maze --root \\n\\\n\n";
    write(before);
    const auto added = list().add();
    ASSERT_TRUE(added);
    EXPECT_EQ(added.value().backup, file() + QStringLiteral(".kestro-backup"));
    EXPECT_EQ(read(added.value().backup), before);
}

TEST_F(XscreensaverListTest, changes_keepTheFileAsItWasBeforeTheFirst)
{
    const QByteArray before = "programs:\\\n  maze --root \\n\\\n\n";
    write(before);
    QFile program(home.filePath(QStringLiteral("kestro")));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    const XscreensaverList own = list(program.fileName());
    ASSERT_TRUE(own.add());
    const auto removed = own.remove();
    ASSERT_TRUE(removed);
    ASSERT_TRUE(removed.value().isChanged);
    EXPECT_EQ(removed.value().backup, file() + QStringLiteral(".kestro-backup"));
    EXPECT_EQ(read(removed.value().backup), before);
}

TEST_F(XscreensaverListTest, add_changesNothing_whenTheEntryIsThere)
{
    write("programs:\\\n  kestro --root \\n\\\n\n");
    const auto added = list().add();
    ASSERT_TRUE(added);
    EXPECT_FALSE(added.value().isChanged);
    EXPECT_FALSE(QFile::exists(file() + QStringLiteral(".kestro-backup")));
}

TEST_F(XscreensaverListTest, isListed_isTrue_whenEverybodyHasItAndTheUserSaysNothing)
{
    listForEverybody();
    EXPECT_TRUE(list().isListed().value());
    write("programs:\\\n  maze --root \\n\\\n\n");
    EXPECT_TRUE(list().isListed().value());
}

TEST_F(XscreensaverListTest, isListed_isFalse_whenTheUserHasItSwitchedOff)
{
    listForEverybody();
    write("programs:\\\n- kestro --root \\n\\\n\n");
    EXPECT_FALSE(list().isListed().value());
}

TEST_F(XscreensaverListTest, isListed_isFalse_whenOnlyAnotherSaverIsThereForEverybody)
{
    listForEverybody("maze --root");
    EXPECT_FALSE(list().isListed().value());
    listForEverybody("- kestro --root");
    EXPECT_FALSE(list().isListed().value());
}

TEST_F(XscreensaverListTest, add_changesNothing_whenEverybodyHasIt)
{
    listForEverybody();
    const auto added = list().add();
    ASSERT_TRUE(added);
    EXPECT_FALSE(added.value().isChanged);
    EXPECT_FALSE(QFile::exists(file()));
}

TEST_F(XscreensaverListTest, remove_switchesItOffForTheUser_andAddOnAgain_whenEverybodyHasIt)
{
    listForEverybody();
    QFile program(home.filePath(QStringLiteral("kestro")));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    const XscreensaverList own = list(program.fileName());
    ASSERT_TRUE(own.remove());
    EXPECT_TRUE(text().contains("- \"Kestro\"  " + QFile::encodeName(program.fileName()) + " --root"));
    EXPECT_FALSE(own.isListed().value());
    ASSERT_TRUE(own.add());
    EXPECT_TRUE(own.isListed().value());
    EXPECT_EQ(text().count("--root"), 1);
}

TEST_F(XscreensaverListTest, operations_sayWhy_whenTheFileCannotBeRead)
{
    ASSERT_TRUE(QDir(home.path()).mkdir(QStringLiteral(".xscreensaver")));
    for (const QString& error : {list().isListed().error(), list().add().error(), list().remove().error()})
        EXPECT_TRUE(error.startsWith(QStringLiteral("Cannot read ") + file())) << qPrintable(error);
}

TEST_F(XscreensaverListTest, add_refusesAProgramThatCannotBeQuoted)
{
    QFile program(home.filePath(QStringLiteral("it's")));
    ASSERT_TRUE(program.open(QIODevice::WriteOnly));
    const auto added = list(program.fileName()).add();
    ASSERT_FALSE(added);
    EXPECT_TRUE(added.error().startsWith(QStringLiteral("xscreensaver cannot run ")));
    EXPECT_FALSE(QFile::exists(file()));
}

} // namespace kestro
