#include "engine/SaverFolders.h"

#include "platform/plist/PropertyList.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

namespace kestro {

SaverFolders::SaverFolders()
{
    qputenv("KESTRO_HOME", QFile::encodeName(home()));
    qputenv("KESTRO_ROOT", QFile::encodeName(root()));
}

SaverFolders::~SaverFolders()
{
    qunsetenv("KESTRO_HOME");
    qunsetenv("KESTRO_ROOT");
}

QString SaverFolders::putBundle(const QString& path, const QString& principal)
{
    putPreferences(path + QStringLiteral("/Contents/Info.plist"),
                   {{QStringLiteral("NSPrincipalClass"), principal},
                    {QStringLiteral("CFBundleExecutable"), QStringLiteral("Fake")}});
    EXPECT_TRUE(QDir().mkpath(path + QStringLiteral("/Contents/Linux")));
    EXPECT_TRUE(
        QFile::link(QStringLiteral(FAKE_BACK_SAVER), path + QStringLiteral("/Contents/Linux/Fake.so")));
    return path;
}

void SaverFolders::putPictureFolderSaver() const
{
    putPreferences(root() + QStringLiteral("/System/Library/Frameworks/ScreenSaver.framework/Versions/A/"
                                           "Resources/Pictures Folder.saver/Contents/Info.plist"),
                   {{QStringLiteral("NSPrincipalClass"), QStringLiteral("PictureFolderView")}});
}

void SaverFolders::putFile(const QString& path)
{
    EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write("no property list") > 0);
}

void SaverFolders::putPreferences(const QString& path, const QVariantMap& preferences)
{
    EXPECT_TRUE(writePropertyList(path, preferences));
}

QVariantMap SaverFolders::preferences(const QString& path)
{
    return readPropertyListDictionary(path).value_or(QVariantMap());
}

} // namespace kestro
