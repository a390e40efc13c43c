#pragma once

#include "platform/base/ScopedEnvironment.h"
#include "settings/MovieURL.h"
#include "settings/Playlist.h"
#include "settings/RecordingTrailers.h"
#include "settings/SettingsInMemory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <memory>

namespace kestro {

/// A playlist on settings in memory, on a machine whose installed movies lie in a folder of the test.
class PlaylistFixture : public testing::Test {
protected:
    void useSettings(const QVariantMap& plist, bool isPreview = false)
    {
        m_settings = std::make_unique<SettingsInMemory>(plist, Settings::ViewKind{.isPreview = isPreview});
        m_playlist = std::make_unique<Playlist>(m_settings->settings(), m_trailers, isPreview);
    }

    void useList(const char* version, const QVariant& list, bool isPreview = false)
    {
        QVariantMap plist{{QStringLiteral("FileList"), list}};
        if (version != nullptr) plist.insert(QStringLiteral("Ver"), QString::fromUtf8(version));
        useSettings(plist, isPreview);
    }

    Playlist& playlist() { return *m_playlist; }

    /// Puts a file at an absolute path of the machine.
    void install(const QString& path)
    {
        const QString place = installed(path);
        ASSERT_TRUE(QDir().mkpath(QFileInfo(place).path()));
        QFile file(place);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    [[nodiscard]] QString installed(const QString& path) const { return m_root.path() + path; }
    [[nodiscard]] QString installedURL(const QString& path) const
    {
        return absoluteString(QUrl::fromLocalFile(installed(path)));
    }

    static QStringList texts(const QList<QUrl>& urls)
    {
        QStringList found;
        for (const QUrl& url : urls)
            found.append(absoluteString(url));
        return found;
    }

    QTemporaryDir m_root;
    ScopedEnvironment m_environment{"KESTRO_ROOT", m_root.path()};
    RecordingTrailers m_trailers;
    std::unique_ptr<SettingsInMemory> m_settings;
    std::unique_ptr<Playlist> m_playlist;
};

} // namespace kestro
