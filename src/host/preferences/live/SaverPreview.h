#pragma once

#include "host/preferences/Preview.h"
#include "widgets/WidgetDesktop.h"

#include <QWidget>

#include <functional>
#include <memory>

namespace kestro {

class ConfigurableSaver;
class HostedSaver;
class SaverControl;
class ScreenSaverView;
class SurfaceWidget;
struct Rect;

/// A saver that runs in a widget, as a host runs it on a screen: its view is made once, started, ticked,
/// fitted to the widget, and stopped when the widget goes. Owned as any widget is. Main thread.
class SaverPreview final : public QWidget {
    Q_OBJECT

public:
    /// Makes the view, `frame` at (0, 0), on that desktop; null when it cannot.
    using ViewFactory = std::function<std::shared_ptr<ScreenSaverView>(const Rect& frame, Desktop& desktop)>;

    explicit SaverPreview(ViewFactory factory, QWidget* parent = nullptr,
                          const SurfaceServices& services = SurfaceServices::real());
    ~SaverPreview() override;

    /// Makes the view and runs it; answers false when there is none. Once.
    [[nodiscard]] bool start();
    /// The saver runs while nothing keeps it from it; it goes on where it was.
    void setPaused(Preview::Pause reason, bool paused);
    [[nodiscard]] bool isRunning() const;

    /// The saver whose options are edited; null where it has none, or there is no view yet.
    [[nodiscard]] ConfigurableSaver* options() const;

    /// Stops the saver for good, and tells all that the application ends.
    void end();

    [[nodiscard]] SurfaceWidget& surface() { return *m_surface; }

Q_SIGNALS:
    /// There is a view now, which is about to start: that may take as long as it looks for a movie.
    void made();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void apply();
    [[nodiscard]] SaverControl* control() const;

    ViewFactory m_factory;
    SurfaceWidget* m_surface;                ///< Qt's parent owns it
    std::shared_ptr<ScreenSaverView> m_view; ///< shared with who runs it
    std::shared_ptr<HostedSaver> m_hosted;   ///< from its start on; shared as HostedSaver says
    unsigned m_pauses = 0;
    bool m_isOver = false;
};

} // namespace kestro
