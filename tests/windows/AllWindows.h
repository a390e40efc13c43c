#pragma once

#include "config_ui/BareMachine.h"
#include "config_ui/ConfigDoubles.h"
#include "config_ui/ConfigSheet.h"
#include "config_ui/HoursPanel.h"
#include "config_ui/ThemePanel.h"
#include "config_ui/URLPanel.h"
#include "host/preferences/DoctorWindow.h"
#include "host/preferences/FakePreview.h"
#include "host/preferences/MoreWindow.h"
#include "host/preferences/PreferencesWindow.h"
#include "platform/base/Random.h"
#include "platform/base/Translations.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "trailers/TrailerCont.h"
#include "trailers/panel/LatestPanel.h"
#include "trailers/panel/TrailerPanel.h"

#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace kestro {

/// Every window that a person may have before them, in one language, each with something to show: shown, but
/// of nobody's making; nothing plays, and nothing is stored outside a folder of its own.
class AllWindows final {
public:
    /// `language` as the files of texts are named; "en" for that of the code.
    explicit AllWindows(const QString& language);
    ~AllWindows();
    AllWindows(const AllWindows&) = delete;
    AllWindows& operator=(const AllWindows&) = delete;

    /// All languages that there are texts in, that of the code first.
    [[nodiscard]] static QStringList languages();

    [[nodiscard]] QList<QWidget*> windows() const;
    /// The widgets of a window that are to be seen in it, in the order in which they were made.
    [[nodiscard]] static QList<QWidget*> seenIn(const QWidget& window);

private:
    [[nodiscard]] PreferencesWindow::Parts parts();
    void fill();

    Translations m_translations;
    BareMachine m_machine;
    QTemporaryDir m_home;
    QSettings m_state{m_home.filePath(QStringLiteral("state.conf")), QSettings::IniFormat};
    Asked m_asked;
    Calls m_calls;
    SaverDouble m_saver{m_calls};
    ManualClock m_clock;
    ManualTimerSource m_timers{m_clock};
    SeededRandom m_random{1};
    SurfaceServices m_services{m_timers, m_clock, m_random};
    MemoryMovieLibrary m_movies{m_clock};
    TrailerCont m_trailers;
    std::unique_ptr<PreferencesWindow> m_preferences;
    std::unique_ptr<TrailerPanel> m_trailerPanel;
    std::unique_ptr<DoctorWindow> m_doctor;
    std::unique_ptr<MoreWindow> m_more;
    std::unique_ptr<LatestPanel> m_latestPanel;
    std::unique_ptr<ConfigSheet> m_sheet;
    std::unique_ptr<ThemePanel> m_themePanel;
    std::unique_ptr<HoursPanel> m_hoursPanel;
};

} // namespace kestro
