#pragma once

#include "widgets/WidgetDesktop.h"

#include <QWidget>

namespace kestro {

/// A widget that shows kestro windows and views, moving content included. Whoever uses it makes windows on
/// its screen and takes them away again before it goes. Owned as any widget is. Main thread; points.
class SurfaceWidget final : public QWidget {
    Q_OBJECT

public:
    explicit SurfaceWidget(QWidget* parent = nullptr,
                           const SurfaceServices& services = SurfaceServices::real());
    ~SurfaceWidget() override;

    /// Tells its observer when the widget was resized.
    [[nodiscard]] WidgetDesktop& desktop() { return m_desktop; }
    [[nodiscard]] Screen& screen() { return m_desktop.screen(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void follow();

    WidgetDesktop m_desktop;
};

} // namespace kestro
