#include "host/preferences/live/SaverPreview.h"

#include "host/session/HostedSaver.h"
#include "platform/display/desktop/Notifications.h"
#include "platform/display/desktop/Screen.h"
#include "platform/display/desktop/Timer.h"
#include "platform/saver/SaverControl.h"
#include "platform/saver/ScreenSaverView.h"
#include "widgets/SurfaceWidget.h"

#include <utility>

namespace kestro {

SaverPreview::SaverPreview(ViewFactory factory, QWidget* parent, const SurfaceServices& services)
    : QWidget(parent)
    , m_factory(std::move(factory))
    , m_surface(new SurfaceWidget(this, services))
{
    setAccessibleName(tr("Preview"));
    m_surface->setAccessibleName(tr("Preview"));
    m_surface->desktop().setScreenObserver({{},
                                            [this](Screen&) {
                                                if (m_hosted) m_hosted->fitToScreen();
                                            },
                                            {}});
}

SaverPreview::~SaverPreview()
{
    end();
    m_view.reset(); // while there is still a desktop that it is on
    m_surface->desktop().setScreenObserver({});
}

bool SaverPreview::start()
{
    m_view = m_factory({{0, 0}, m_surface->screen().frame().size}, m_surface->desktop());
    if (!m_view) return false;
    Q_EMIT made();
    apply();
    return true;
}

void SaverPreview::setPaused(Preview::Pause reason, bool paused)
{
    m_pauses = paused ? m_pauses | reason : m_pauses & ~unsigned{reason};
    apply();
}

void SaverPreview::apply()
{
    if (!m_view || m_isOver) return;
    if (m_hosted) return m_hosted->rest(m_pauses == 0 ? Rest::None : Rest::Held);
    if (m_pauses != 0) return;
    m_hosted = std::make_shared<HostedSaver>(m_surface->screen(), m_view, nullptr);
    m_hosted->start();
}

bool SaverPreview::isRunning() const
{
    return m_hosted && !m_hosted->isResting();
}

SaverControl* SaverPreview::control() const
{
    return m_view ? SaverControl::of(*m_view, m_surface->screen()) : nullptr;
}

ConfigurableSaver* SaverPreview::options() const
{
    auto* saver = control();
    return saver ? saver->options() : nullptr;
}

void SaverPreview::end()
{
    if (std::exchange(m_isOver, true)) return;
    if (const auto hosted = std::exchange(m_hosted, nullptr)) {
        hosted->rest(Rest::Held); // a movie runs on when its view is stopped, and would be decoded for nobody
        hosted->stop();
    }
    WidgetDesktop& desktop = m_surface->desktop();
    desktop.notifications().post(Notice::ApplicationWillTerminate, nullptr);
}

void SaverPreview::resizeEvent(QResizeEvent*)
{
    m_surface->setGeometry(rect());
}

} // namespace kestro
