#pragma once

#include <QObject>
#include <QRect>

#include <optional>

class QWidget;

namespace kestro {

/// Has a window come back, when it is shown again, exactly where it was when it was hidden: by itself it
/// would be put where windows come that are new. One whose screen went meanwhile is one of those. Owned by
/// the window; main thread.
class WindowPlace final : public QObject {
    Q_OBJECT

public:
    explicit WindowPlace(QWidget& window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void keep();
    void restore();

    QWidget& m_window;
    std::optional<QRect> m_place; ///< without its frame; nothing where it was as large as the screen
};

} // namespace kestro
