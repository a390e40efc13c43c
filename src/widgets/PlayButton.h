#pragma once

#include <QToolButton>

namespace kestro {

/// The button of a controller bar that starts and stops: a triangle while what it rules stands, two bars
/// while it plays, in the colours of the desktop. Says so to assistive programs too. Owned as any widget is.
/// Main thread. Tested by MoviePreviewTest.
class PlayButton final : public QToolButton {
    Q_OBJECT

public:
    explicit PlayButton(QWidget* parent = nullptr);

    [[nodiscard]] bool isPlaying() const { return m_isPlaying; }
    void setPlaying(bool playing);

protected:
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void nameIt();

    bool m_isPlaying = false;
};

} // namespace kestro
