#pragma once

#include "host/preferences/SaverPreview.h"
#include "host/preferences/SaverRun.h"
#include "host/xscreensaver/XscreensaverList.h"

#include <QWidget>

#include <functional>

class QDialog;
class QLabel;
class QPushButton;
class QSettings;

namespace kestro {

class AspectBox;
class XscreensaverPanel;

/// The window of the preferences application: the saver in a live preview, the sheet of its options, a trial
/// run, and whether xscreensaver starts it. It remembers its place. Owned by the program. Main thread.
class PreferencesWindow final : public QWidget {
    Q_OBJECT

public:
    /// What it is made of; all of it outlives the window.
    struct Parts {
        SaverPreview::ViewFactory views;
        /// Makes the sheet for a saver, over a window, which owns it.
        std::function<QDialog*(ConfigurableSaver& saver, QWidget* over)> sheet;
        QString program; ///< the file that a trial run runs
        XscreensaverList xscreensaver;
        QSettings& state; ///< what the application keeps from one time to the next
    };

    explicit PreferencesWindow(const Parts& parts);
    ~PreferencesWindow() override;

    /// Opens the sheet over the window; nothing while it is open.
    void openOptions();
    /// Runs the saver full screen; the preview stands still meanwhile.
    void tryIt();
    /// Stops what runs, the trial included, and keeps the window's place. For good.
    void end();

    [[nodiscard]] SaverPreview& preview() { return *m_preview; }

Q_SIGNALS:
    void closed();

protected:
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void layOut();
    void addKeys();
    void restorePlace();
    void takeShapeOfScreen();
    void startPreview();
    void trialEnded(const QString& error);
    void alert(const QString& message);

    Parts m_parts;
    SaverPreview* m_preview; ///< Qt's parents own all widgets
    AspectBox* m_box;
    QPushButton* m_options;
    QPushButton* m_tryIt;
    QPushButton* m_close;
    XscreensaverPanel* m_xscreensaver;
    QDialog* m_sheet = nullptr; ///< made when first opened
    SaverRun m_trial;
    bool m_wasShown = false;
    bool m_isOver = false;
};

} // namespace kestro
