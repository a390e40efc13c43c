#pragma once

#include "keep/MovieStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

/// A store of 100,000 bytes that is claimed, in a folder of the test's own.
class StoreTest : public testing::Test {
protected:
    static constexpr qint64 room = 100'000;
    static constexpr qint64 secondsOfDay = 24LL * 60 * 60;

    void SetUp() override { ASSERT_TRUE(m_store.claim()); }

    [[nodiscard]] static QUrl movie(const QString& name)
    {
        return QUrl(QStringLiteral("http://movies.example/") + name);
    }
    [[nodiscard]] QString folder() const { return m_home.filePath(QStringLiteral("a/b/movies")); }
    [[nodiscard]] QStringList names(const QString& pattern) const
    {
        return QDir(folder()).entryList({pattern}, QDir::Files);
    }
    /// Keeps a movie of so many bytes.
    void keep(const QUrl& url, qint64 bytes, const RemoteVersion& version = {})
    {
        write(m_store.partFile(url), bytes);
        ASSERT_TRUE(m_store.take(url, version));
    }
    static void write(const QString& path, qint64 bytes)
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(bytes, 'm'));
    }
    /// Has the file of that ending last changed so many days ago.
    void age(const QUrl& url, const QString& ending, int days) const
    {
        QString path = m_store.partFile(url);
        QFile file(path.replace(QStringLiteral(".part"), ending));
        ASSERT_TRUE(file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly));
        ASSERT_TRUE(
            file.setFileTime(QDateTime::currentDateTime().addDays(-days), QFileDevice::FileModificationTime));
    }

    QTemporaryDir m_home;
    MovieStore m_store{m_home.filePath(QStringLiteral("a/b/movies")), room};
};

} // namespace kestro
