#pragma once

#include "platform/base/Log.h"
#include "platform/plist/PropertyList.h"
#include "trailers/TrailerList.h"

#include <QDir>
#include <QFile>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

/// A home folder with a list file as a test writes it, a seed, and what is logged meanwhile.
class TrailerListFixture : public testing::Test {
protected:
    [[nodiscard]] QString path(const char* name = "Kestro_Scanned_Trailers.lst") const
    {
        return m_home.filePath(QStringLiteral("Library/Preferences/") + QLatin1String(name));
    }
    [[nodiscard]] QString backup() const { return path("Kestro_Scanned_Trailers~.lst"); }
    [[nodiscard]] QString seed() const { return m_home.filePath(QStringLiteral("seed.lst")); }

    void writeFile(const QVariantMap& root) const { ASSERT_TRUE(writePropertyList(path(), root)); }
    void writeSeed(const QVariantList& trailers) const
    {
        ASSERT_TRUE(writePropertyList(seed(), QVariantMap{{QStringLiteral("Ver"), QStringLiteral("1")},
                                                          {QStringLiteral("Trailers"), trailers}}));
    }
    void writeBytes(const QByteArray& bytes) const
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(path()).path()));
        QFile file(path());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(bytes), bytes.size());
    }
    static QByteArray bytesOf(const QString& file)
    {
        QFile opened(file);
        return opened.open(QIODevice::ReadOnly) ? opened.readAll() : QByteArray();
    }

    static QVariantMap stored(const QString& url, const char* size = "480 x 204",
                              const char* date = "2008/03/14")
    {
        return {{QStringLiteral("URL"), url},
                {QStringLiteral("Size"), QLatin1String(size)},
                {QStringLiteral("Date"), QLatin1String(date)}};
    }
    static TrailerRecord record(const char* url, const char* size = "480 x 204",
                                const char* date = "2008/03/14")
    {
        TrailerRecord made;
        made.url = QLatin1String(url);
        made.size = QLatin1String(size);
        made.date = QLatin1String(date);
        return made;
    }
    static QVariantMap listOf(const QVariantList& trailers)
    {
        return {{QStringLiteral("Ver"), QStringLiteral("010901")}, {QStringLiteral("Trailers"), trailers}};
    }

    QTemporaryDir m_home;
    QStringList m_log;
    LogCapture m_capture{[this](const QString& line) { m_log.append(line); }};
};

} // namespace kestro
