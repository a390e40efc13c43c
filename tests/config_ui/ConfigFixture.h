#pragma once

#include "config_ui/ConfigDoubles.h"
#include "config_ui/ConfigModel.h"

#include <QFile>
#include <QSettings>

#include <gtest/gtest.h>
#include <memory>

namespace kestro {

/// The rules of the sheet over a saver, panels and a trailer browser that a test holds.
class ConfigFixture : public testing::Test {
protected:
    /// A sheet that opens on these options.
    ConfigModel& open(const QVariantMap& options = {})
    {
        saver.store().setPlist(options);
        m_model = std::make_unique<ConfigModel>(ConfigModel::Sources{saver, panels, defaults, &trailers});
        calls.clear();
        return *m_model;
    }
    /// … and on a playlist of these URLs.
    ConfigModel& openList(const QStringList& urls, QVariantMap options = {})
    {
        options.insert(QStringLiteral("Ver"), QStringLiteral("5"));
        options.insert(QStringLiteral("FileList"), urls);
        return open(options);
    }

    [[nodiscard]] QStringList listed() const
    {
        QStringList texts;
        for (const PlaylistEntry& entry : m_model->playList().entries())
            texts.append(entry.text);
        return texts;
    }
    [[nodiscard]] QByteArray file()
    {
        QFile main(saver.store().plistPath());
        return main.open(QIODevice::ReadOnly) ? main.readAll() : QByteArray();
    }
    static QString movie(const QString& name) { return QStringLiteral("http://m/") + name; }

    Calls calls;
    QTemporaryDir folder;
    QSettings defaults{folder.filePath(QStringLiteral("host.conf")), QSettings::IniFormat};
    SaverDouble saver{calls};
    PanelsDouble panels{calls};
    BrowserDouble trailers{calls};
    std::unique_ptr<ConfigModel> m_model; ///< the one that was opened last
};

} // namespace kestro
