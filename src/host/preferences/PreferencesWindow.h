#pragma once

#include "host/preferences/Preview.h"
#include "host/preferences/SaverRun.h"
#include "host/xscreensaver/XscreensaverList.h"
#include "idle/IdleSwitch.h"

#include <QWidget>

#include <functional>
#include <memory>

class QDialogButtonBox;
class QPushButton;
class QSettings;

namespace kestro {

class AspectBox;
class IdlePanel;
class ScreensPanel;
class XscreensaverPanel;

/// The window of the preferences application: the saver in a live preview, the sheet of its options, a trial
/// run, how the monitors share it, whether it starts by itself, and whether xscreensaver starts it. It
/// remembers its place. Owned by the program. Main thread.
class PreferencesWindow final : public QWidget {
    Q_OBJECT

public:
    /// What it is made of; all of it outlives the window.
    struct Parts {
        /// Makes the preview, once the window is on the screen; null when it cannot.
        std::function<std::unique_ptr<Preview>()> preview;
        QString program; ///< the file that a trial run runs
        IdleSwitch::Places idle;
        XscreensaverList xscreensaver;
        QSettings& state; ///< what the application keeps from one time to the next
    };

    explicit PreferencesWindow(const Parts& parts);
    ~PreferencesWindow() override;

    /// Opens the sheet over the window, as soon as there is a saver; nothing while it is open.
    void openOptions();
    /// Runs the saver full screen; the preview stands still meanwhile.
    void tryIt();
    /// Opens the window of the options that most people never need.
    void openMore();
    void askDoctor();
    /// Stops what runs, the trial included, and keeps the window's place. For good.
    void end();

    /// Null until the window was on the screen.
    [[nodiscard]] Preview* preview() { return m_preview.get(); }

Q_SIGNALS:
    void closed();

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    void addKeys();
    void restorePlace();
    void takeShapeOfScreen();
    void startPreview();
    void saverIsMade();
    void saverIsMissing();
    void pausePreview(Preview::Pause reason, bool paused);
    void trialEnded(const QString& error);
    void alert(const QString& message);

    Parts m_parts;
    AspectBox* m_box; ///< Qt's parents own all widgets
    ScreensPanel* m_screens;
    IdlePanel* m_idle;
    XscreensaverPanel* m_xscreensaver;
    QPushButton* m_more;
    QDialogButtonBox* m_buttons; ///< after the others: Tab goes through them in this order
    QPushButton* m_options;
    QPushButton* m_tryIt;
    std::unique_ptr<Preview> m_preview;
    SaverRun m_trial;
    bool m_wasPainted = false;
    bool m_isMade = false;
    bool m_wantsOptions = false; ///< asked for before there was a saver
    bool m_isOver = false;
};

} // namespace kestro
