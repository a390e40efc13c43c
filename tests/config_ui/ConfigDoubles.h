#pragma once

#include "config_ui/ConfigPanels.h"
#include "platform/base/Clock.h"
#include "platform/base/ConfigurationFile.h"
#include "platform/movie/MemoryMovie.h"
#include "settings/ConfigurableSaver.h"
#include "settings/EntryMarks.h"
#include "settings/Playlist.h"
#include "settings/RecordingTrailers.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"
#include "settings/TrailerBrowser.h"
#include "settings/URLListReceiver.h"

#include <QTemporaryDir>

#include <functional>
#include <vector>

namespace kestro {

/// What the doubles were asked, in order.
using Calls = std::vector<QString>;

/// A preview saver on settings of a folder of its own.
class SaverDouble final : public ConfigurableSaver {
public:
    explicit SaverDouble(Calls& calls)
        : m_calls(calls)
    {
    }

    Settings& settings() override { return m_settings; }
    Playlist& playlist() override { return m_playlist; }
    MovieLibrary& movies() override { return m_movies; }
    QStringList reloadBackSavers() override { return backSavers; }
    void applyLoopMode() override
    {
        const auto mode = m_settings.loopMode(m_playlist.fileList().size());
        m_calls.push_back(QStringLiteral("loop %1").arg(mode.value_or(-1)));
    }
    void resetMovie() override
    {
        const bool hasPosition = m_store.defaultsForKey(QStringLiteral("LastPos")).has_value();
        m_calls.push_back(hasPosition ? QStringLiteral("reset with position") : QStringLiteral("reset"));
    }

    [[nodiscard]] SettingsStore& store() { return m_store; }
    [[nodiscard]] EntryMarks& marks() { return m_marks; }

    QStringList backSavers;

private:
    Calls& m_calls;
    QTemporaryDir m_home;
    SettingsStore m_store{m_home.path()};
    Settings m_settings{m_store, {.isPreview = true}};
    RecordingTrailers m_trailers;
    ManualClock m_clock;
    MemoryMovieLibrary m_movies{m_clock};
    QString m_configuration = m_home.filePath(QStringLiteral("kestro.conf"));
    EntryMarks m_marks{ConfigurationFile({}, m_configuration), m_configuration};
    Playlist m_playlist{m_settings, m_trailers, true, nullptr, &m_marks};
};

/// A person who answers as the test says.
class PanelsDouble final : public ConfigPanels {
public:
    explicit PanelsDouble(Calls& calls)
        : m_calls(calls)
    {
    }

    void openFolder(const QString& folder) override { m_calls.push_back(folder); }
    void endSheet() override { m_calls.push_back(QStringLiteral("end sheet")); }
    void runAlert(const QString& message) override
    {
        alerts.push_back(message);
        m_calls.push_back(QStringLiteral("alert"));
        if (duringAlert) duringAlert();
    }
    void beginWait(const QString& message, std::function<void()> action) override
    {
        m_calls.push_back(message);
        giveUp = std::move(action);
    }
    void endWait() override { m_calls.push_back(QStringLiteral("end wait")); }
    std::optional<Choice> runOpenPanel(const QString& folder) override
    {
        folders.push_back(folder);
        return choice;
    }

    std::optional<QString> runFolderPanel(const QString& folder) override
    {
        folders.push_back(folder);
        return chosenFolder;
    }

    std::optional<PlayTime> runHoursPanel(const PlayTime& time) override
    {
        askedHours.push_back(time);
        return hours;
    }

    std::optional<PlayTime> hours;
    std::vector<PlayTime> askedHours; ///< that the panel of hours was to begin with
    std::optional<Choice> choice;
    std::optional<QString> chosenFolder;
    std::function<void()> duringAlert;
    std::vector<QString> alerts;
    std::function<void()> giveUp; ///< what is waited for
    std::vector<QString> folders; ///< that the open panel was to start in

private:
    Calls& m_calls;
};

/// A trailer browser that keeps who it was shown for.
class BrowserDouble final : public TrailerBrowser {
public:
    explicit BrowserDouble(Calls& calls)
        : m_calls(calls)
    {
    }

    void showPanel(URLListReceiver& receiver) override { shownFor = &receiver; }
    void close() override { m_calls.push_back(QStringLiteral("close trailers")); }

    URLListReceiver* shownFor = nullptr;

private:
    Calls& m_calls;
};

} // namespace kestro
