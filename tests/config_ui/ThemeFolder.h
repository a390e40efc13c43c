#pragma once

#include "settings/URLListReceiver.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro::test {

/// Keeps what it is handed, and how often.
class ReceiverDouble final : public URLListReceiver {
public:
    void addURLList(const QList<QUrl>& urls) override
    {
        received.append(urls);
        ++calls;
    }

    QList<QUrl> received;
    int calls = 0;
};

/// A platform root of the test's own, into which it puts the files of a DVD program.
class ThemeFolderTest : public testing::Test {
protected:
    ThemeFolderTest() { qputenv("KESTRO_ROOT", QFile::encodeName(m_root.path())); }
    ~ThemeFolderTest() override { qunsetenv("KESTRO_ROOT"); }

    /// An empty file at a path of the DVD program; answers its full path.
    QString put(const QString& path)
    {
        const QString full = inRoot(program + path);
        QDir().mkpath(QFileInfo(full).path());
        QFile file(full);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(full);
        return full;
    }
    [[nodiscard]] QString inRoot(const QString& path) const { return m_root.path() + path; }

    inline static const QString program = QStringLiteral("/Applications/iDVD.app");

    QTemporaryDir m_root;
    ReceiverDouble m_playlist;
};

} // namespace kestro::test
