#include "host/hacks/HackBundles.h"

#include "platform/plist/PropertyList.h"
#include "platform/saver/SaverBundle.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

using Change = HackBundles::Change;

class HackBundlesTest : public testing::Test {
protected:
    [[nodiscard]] QString folder() const { return m_home.filePath(QStringLiteral("Library/Screen Savers")); }
    [[nodiscard]] QString at(const char* name) const { return folder() + u'/' + QString::fromUtf8(name); }
    [[nodiscard]] QStringList there() const
    {
        return QDir(folder()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    }
    static InstalledHack gears()
    {
        return {QStringLiteral("gears"), QStringLiteral("Gears"), {QStringLiteral("/usr/bin/env"), {}, true}};
    }
    void write(const InstalledHack& hack, const QString& path, Change change) const
    {
        HackBundles bundles(folder());
        const auto written = bundles.write(hack);
        ASSERT_TRUE(written.isOk()) << written.error().toStdString();
        EXPECT_EQ(written.value().path, path);
        EXPECT_EQ(written.value().change, change);
        EXPECT_EQ(HackBundles(folder()).pathOf(hack.name), path);
    }
    static QVariantMap infoIn(const QString& bundle)
    {
        return readPropertyListDictionary(bundle + QStringLiteral("/Contents/Info.plist"))
            .value_or(QVariantMap());
    }
    void putForeign(const QString& bundle)
    {
        ASSERT_TRUE(
            writePropertyList(bundle + QStringLiteral("/Contents/Info.plist"),
                              QVariantMap{{QStringLiteral("CFBundleIdentifier"), QStringLiteral("a.b")}}));
    }

    QTemporaryDir m_home;
};

} // namespace

TEST_F(HackBundlesTest, write_makesABundleThatLoadsAndSaysWhatTheHackIs)
{
    write(gears(), at("Gears.saver"), Change::Added);
    EXPECT_TRUE(SaverBundle::load(at("Gears.saver")).isOk());
    const auto hack = Hack::fromInfo(infoIn(at("Gears.saver")));
    ASSERT_TRUE(hack.isOk());
    EXPECT_EQ(hack.value().program, QStringLiteral("/usr/bin/env"));
    EXPECT_TRUE(hack.value().drawsOpenGL);
}

TEST_F(HackBundlesTest, write_updatesTheBundleThereIs_andAddsNoSecond)
{
    write(gears(), at("Gears.saver"), Change::Added);
    write(gears(), at("Gears.saver"), Change::None);
    InstalledHack changed = gears();
    changed.hack.arguments = {QStringLiteral("--fast")};
    write(changed, at("Gears.saver"), Change::Updated);
    EXPECT_EQ(Hack::fromInfo(infoIn(at("Gears.saver"))).value().arguments, changed.hack.arguments);
    EXPECT_EQ(there(), QStringList{QStringLiteral("Gears.saver")});
}

TEST_F(HackBundlesTest, write_findsTheBundleAgain_whenItWasRenamed)
{
    write(gears(), at("Gears.saver"), Change::Added);
    ASSERT_TRUE(QDir().rename(at("Gears.saver"), at("Wheels.saver")));
    write(gears(), at("Wheels.saver"), Change::None);
    EXPECT_EQ(there(), QStringList{QStringLiteral("Wheels.saver")});
}

TEST_F(HackBundlesTest, write_leavesForeignBundlesAsTheyAre)
{
    putForeign(at("Gears.saver"));
    const QVariantMap before = infoIn(at("Gears.saver"));
    write(gears(), at("Gears (gears).saver"), Change::Added);
    EXPECT_EQ(infoIn(at("Gears.saver")), before);
    InstalledHack other = gears();
    other.name = QStringLiteral("gears2");
    putForeign(at("Gears (gears2).saver"));
    EXPECT_FALSE(HackBundles(folder()).write(other).isOk());
    EXPECT_EQ(infoIn(at("Gears (gears2).saver")), before);
}

TEST_F(HackBundlesTest, write_leavesLinksAndFilesOfThatNameAsTheyAre)
{
    ASSERT_TRUE(QDir().mkpath(folder()));
    ASSERT_TRUE(QFile::link(QStringLiteral("/nowhere"), at("Gears.saver")));
    write(gears(), at("Gears (gears).saver"), Change::Added);
    EXPECT_TRUE(QFileInfo(at("Gears.saver")).isSymLink());
}

TEST_F(HackBundlesTest, label_becomesAFileName_whateverIsInIt)
{
    const std::pair<const char*, const char*> labels[] = {
        {"Möbius", "Möbius.saver"}, {"A/B", "A-B.saver"}, {"..", "(gears).saver"}, {".x", "x.saver"}};
    for (const auto& [label, file] : labels) {
        InstalledHack hack = gears();
        hack.label = QString::fromUtf8(label);
        const auto written = HackBundles(folder()).write(hack);
        ASSERT_TRUE(written.isOk());
        EXPECT_EQ(QFileInfo(written.value().path).fileName().trimmed(), QString::fromUtf8(file));
        EXPECT_EQ(QFileInfo(written.value().path).path(), folder());
        ASSERT_TRUE(QDir(folder()).removeRecursively());
    }
}

TEST_F(HackBundlesTest, write_fails_whenTheFolderCannotBeMade)
{
    QFile file(m_home.filePath(QStringLiteral("Library")));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_FALSE(HackBundles(folder()).write(gears()).isOk());
}

} // namespace kestro
