#include "settings/SettingsStore.h"

#include "platform/base/Log.h"
#include "platform/plist/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

namespace {

class SettingsStoreFiles : public testing::Test {
protected:
    [[nodiscard]] QString preferences(const char* name) const
    {
        return m_home.path() + QStringLiteral("/Library/Preferences/") + QString::fromUtf8(name);
    }

    static void put(const QString& path, const QVariant& root) { ASSERT_TRUE(writePropertyList(path, root)); }

    static void putBytes(const QString& path, const QByteArray& bytes)
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }

    [[nodiscard]] static QByteArray bytesOf(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    QTemporaryDir m_home;
};

const QString lastMovie = QStringLiteral("LastMovie");
const QString lastPos = QStringLiteral("LastPos");
const QString ver = QStringLiteral("Ver");

} // namespace

TEST_F(SettingsStoreFiles, paths_lieInThePreferences_ofTheHomeFolder)
{
    const SettingsStore store(QStringLiteral("/home/me"));
    EXPECT_EQ(store.plistPath(), QStringLiteral("/home/me/Library/Preferences/Kestro.plist"));
    EXPECT_EQ(store.defaultsPlistPath(), QStringLiteral("/home/me/Library/Preferences/Kestro.def.plist"));
}

TEST_F(SettingsStoreFiles, dictionaries_areEmpty_whenThereAreNoFiles)
{
    SettingsStore store(m_home.path());
    EXPECT_TRUE(store.plist().isEmpty());
    EXPECT_TRUE(store.defaultsPlist().isEmpty());
    EXPECT_FALSE(store.defaultsForKey(lastMovie).has_value());
    EXPECT_TRUE(QDir(m_home.path()).isEmpty()) << "reading makes no file";
}

TEST_F(SettingsStoreFiles, dictionaries_areEmpty_whenTheFilesAreMalformed)
{
    put(preferences("Kestro.plist"), QVariantList{1});
    put(preferences("Kestro.def.plist"), QVariantMap());
    QFile damaged(preferences("Kestro.def.plist"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("<plist><dict>");
    damaged.close();
    SettingsStore store(m_home.path());
    EXPECT_TRUE(store.plist().isEmpty());
    EXPECT_TRUE(store.defaultsPlist().isEmpty());
}

TEST_F(SettingsStoreFiles, reading_saysNothing_whenTheFilesCannotBeRead)
{
    putBytes(preferences("Kestro.plist"), "<plist><dict>");
    putBytes(preferences("Kestro.def.plist"), "broken");
    QStringList log;
    const LogCapture capture([&log](const QString& line) { log.append(line); });
    SettingsStore store(m_home.path());
    EXPECT_TRUE(store.plist().isEmpty());
    EXPECT_TRUE(store.defaultsPlist().isEmpty());
    EXPECT_EQ(log, QStringList());
}

TEST_F(SettingsStoreFiles, writing_saysWhereTheFileBeforeIs_whenItCannotBeRead)
{
    putBytes(preferences("Kestro.plist"), "<plist><dict>");
    QStringList log;
    const LogCapture capture([&log](const QString& line) { log.append(line); });
    SettingsStore store(m_home.path());
    EXPECT_TRUE(store.plist().isEmpty());
    EXPECT_TRUE(store.writePlist());
    EXPECT_EQ(log, QStringList{QStringLiteral("Cannot read %1: kept as %2.")
                                   .arg(preferences("Kestro.plist"), preferences("Kestro~.plist"))});
}

TEST_F(SettingsStoreFiles, writing_keepsTheFileBefore_whenItCannotBeRead)
{
    putBytes(preferences("Kestro.plist"), "<plist><dict>");
    putBytes(preferences("Kestro~.plist"), "an older copy");
    putBytes(preferences("Kestro.def.plist"), "broken");
    SettingsStore store(m_home.path());
    store.setPlist({{ver, QStringLiteral("5")}});
    EXPECT_TRUE(store.writePlist());
    EXPECT_TRUE(store.setDefaultsForKey(QStringLiteral("1"), lastPos));
    EXPECT_EQ(store.keptPlist(), preferences("Kestro~1.plist"));
    EXPECT_EQ(bytesOf(preferences("Kestro~1.plist")), "<plist><dict>");
    EXPECT_EQ(bytesOf(preferences("Kestro~.plist")), "an older copy");
    EXPECT_EQ(bytesOf(preferences("Kestro.def~.plist")), "broken");
    EXPECT_EQ(readPropertyListDictionary(preferences("Kestro.plist")), store.plist());
    EXPECT_EQ(readPropertyListDictionary(preferences("Kestro.def.plist")), store.defaultsPlist());
}

TEST_F(SettingsStoreFiles, writing_keepsTheFileBefore_whenItCouldNotBeReadAtFirst)
{
    putBytes(preferences("Kestro.plist"), "<plist><dict>");
    SettingsStore store(m_home.path());
    store.setPlist({{ver, QStringLiteral("5")}});
    const QVariantMap whole{{ver, QStringLiteral("4")}};
    put(preferences("Kestro.plist"), whole);
    EXPECT_TRUE(store.writePlist());
    EXPECT_EQ(readPropertyListDictionary(preferences("Kestro~.plist")), whole);
    EXPECT_TRUE(store.writePlist());
    EXPECT_FALSE(QFile::exists(preferences("Kestro~1.plist")));
}

TEST_F(SettingsStoreFiles, writing_keepsNothing_whenTheFileBeforeCanBeRead)
{
    put(preferences("Kestro.plist"), QVariantMap{{ver, QStringLiteral("4")}});
    SettingsStore store(m_home.path());
    store.setPlist({{ver, QStringLiteral("5")}});
    EXPECT_TRUE(store.writePlist());
    EXPECT_EQ(store.keptPlist(), QString());
    EXPECT_EQ(QDir(preferences("")).entryList(QDir::Files), QStringList{QStringLiteral("Kestro.plist")});
}

TEST_F(SettingsStoreFiles, writing_keepsAFolder_whenThereIsOneInThePlaceOfTheFile)
{
    ASSERT_TRUE(QDir().mkpath(preferences("Kestro.plist/below")));
    SettingsStore store(m_home.path());
    store.setPlist({{ver, QStringLiteral("5")}});
    EXPECT_TRUE(store.writePlist());
    EXPECT_TRUE(QFileInfo(preferences("Kestro~.plist/below")).isDir());
    EXPECT_EQ(readPropertyListDictionary(preferences("Kestro.plist")), store.plist());
}

TEST_F(SettingsStoreFiles, dictionaries_areReadOnce)
{
    put(preferences("Kestro.plist"), QVariantMap{{ver, QStringLiteral("5")}});
    put(preferences("Kestro.def.plist"), QVariantMap{{lastPos, QStringLiteral("600")}});
    SettingsStore store(m_home.path());
    EXPECT_EQ(store.plist().value(ver), QVariant(QStringLiteral("5")));
    EXPECT_EQ(store.defaultsForKey(lastPos), QVariant(QStringLiteral("600")));

    put(preferences("Kestro.plist"), QVariantMap{{ver, QStringLiteral("4")}});
    put(preferences("Kestro.def.plist"), QVariantMap());
    EXPECT_EQ(store.plist().value(ver), QVariant(QStringLiteral("5")));
    EXPECT_EQ(store.defaultsForKey(lastPos), QVariant(QStringLiteral("600")));
}

TEST_F(SettingsStoreFiles, plist_isKept_whenChanged)
{
    SettingsStore store(m_home.path());
    store.setPlist({{ver, QStringLiteral("5")}});
    EXPECT_EQ(store.plist().value(ver), QVariant(QStringLiteral("5")));
    EXPECT_TRUE(QDir(m_home.path()).isEmpty()) << "only the sheet writes it";
}

TEST_F(SettingsStoreFiles, setDefaults_writesTheWholeFile_keepingOtherKeys)
{
    put(preferences("Kestro.def.plist"), QVariantMap{{lastMovie, QStringLiteral("a.mov")}});
    SettingsStore store(m_home.path());
    EXPECT_TRUE(store.setDefaultsForKey(QStringLiteral("1200"), lastPos));
    const QVariantMap expected{{lastMovie, QStringLiteral("a.mov")}, {lastPos, QStringLiteral("1200")}};
    EXPECT_EQ(readPropertyListDictionary(preferences("Kestro.def.plist")), expected);
    EXPECT_EQ(store.defaultsForKey(lastPos), QVariant(QStringLiteral("1200")));
}

TEST_F(SettingsStoreFiles, setDefaults_leavesTheMainFileAlone)
{
    SettingsStore store(m_home.path());
    EXPECT_TRUE(store.setDefaultsForKey(QStringLiteral("1"), lastPos));
    EXPECT_FALSE(QFile::exists(preferences("Kestro.plist")));
}

TEST_F(SettingsStoreFiles, setDefaults_setsSeveralKeys_keepingOthers)
{
    put(preferences("Kestro.def.plist"), QVariantMap{{QStringLiteral("Other"), QStringLiteral("x")}});
    SettingsStore store(m_home.path());
    EXPECT_TRUE(store.setDefaults({{lastMovie, QStringLiteral("a.mov")}, {lastPos, QStringLiteral("7")}}));
    const QVariantMap expected{{QStringLiteral("Other"), QStringLiteral("x")},
                               {lastMovie, QStringLiteral("a.mov")},
                               {lastPos, QStringLiteral("7")}};
    EXPECT_EQ(readPropertyListDictionary(preferences("Kestro.def.plist")), expected);
}

TEST_F(SettingsStoreFiles, removeDefaults_writesTheWholeFile_keepingOtherKeys)
{
    put(preferences("Kestro.def.plist"),
        QVariantMap{{lastMovie, QStringLiteral("a.mov")}, {lastPos, QStringLiteral("1200")}});
    SettingsStore store(m_home.path());
    EXPECT_TRUE(store.removeDefaultsForKey(lastPos));
    const QVariantMap expected{{lastMovie, QStringLiteral("a.mov")}};
    EXPECT_EQ(readPropertyListDictionary(preferences("Kestro.def.plist")), expected);
    EXPECT_FALSE(store.defaultsForKey(lastPos).has_value());
}

TEST_F(SettingsStoreFiles, changes_stayInMemory_whenTheFileCannotBeWritten)
{
    QFile inTheWay(m_home.filePath(QStringLiteral("Library")));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    SettingsStore store(m_home.path());
    EXPECT_FALSE(store.setDefaultsForKey(QStringLiteral("1200"), lastPos));
    EXPECT_EQ(store.defaultsForKey(lastPos), QVariant(QStringLiteral("1200")));
    EXPECT_FALSE(store.removeDefaultsForKey(lastPos));
    EXPECT_FALSE(store.defaultsForKey(lastPos).has_value());
}

TEST_F(SettingsStoreFiles, optionsForThisRun_countInsteadOfTheFile_andAreNeverWritten)
{
    const QString scale = QStringLiteral("Scale");
    const QString mode = QStringLiteral("PlayMode");
    const QVariantMap stored{{scale, QStringLiteral("2")}, {mode, QStringLiteral("1")}};
    put(preferences("Kestro.plist"), stored);
    SettingsStore store(m_home.path());
    store.setOptionsForThisRun({{scale, QStringLiteral("0.5")}});
    EXPECT_EQ(store.option(scale), QVariant(QStringLiteral("0.5")));
    EXPECT_EQ(store.option(mode), QVariant(QStringLiteral("1")));
    EXPECT_FALSE(store.option(QStringLiteral("Fadeout")).has_value());
    EXPECT_TRUE(store.setDefaultsForKey(QStringLiteral("1200"), lastPos));
    EXPECT_EQ(store.plist(), stored);
    EXPECT_EQ(readPropertyListDictionary(preferences("Kestro.plist")), stored);
}

TEST_F(SettingsStoreFiles, runThatLeavesNothing_changesMemoryAlone)
{
    const QVariantMap stored{{lastMovie, QStringLiteral("a.mov")}};
    put(preferences("Kestro.def.plist"), stored);
    put(preferences("Kestro.plist"), QVariantMap{{QStringLiteral("LeavesNothing"), QStringLiteral("1")}});
    SettingsStore store(m_home.path());
    EXPECT_FALSE(store.leavesNothing()) << "a stored setting cannot ask for it";
    store.setOptionsForThisRun({{QStringLiteral("LeavesNothing"), QStringLiteral("1")}});
    EXPECT_TRUE(store.leavesNothing());
    EXPECT_FALSE(store.setDefaultsForKey(QStringLiteral("1200"), lastPos));
    EXPECT_EQ(store.defaultsForKey(lastPos), QVariant(QStringLiteral("1200")));
    EXPECT_FALSE(store.removeDefaultsForKey(lastMovie));
    EXPECT_EQ(readPropertyListDictionary(preferences("Kestro.def.plist")), stored);
}

} // namespace kestro
