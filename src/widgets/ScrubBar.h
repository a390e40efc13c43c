#pragma once

#include <QSlider>

namespace kestro {

/// A slider over the time of a movie: a press anywhere goes there at once and drags on from there; arrow keys
/// go by a second, page keys by ten. Its values are movie time units (600 a second). Owned as any widget is.
/// Main thread. Tested by MoviePreviewTest.
class ScrubBar final : public QSlider {
    Q_OBJECT

public:
    explicit ScrubBar(QWidget* parent = nullptr);

    /// Shows `position` of `duration`, both in movie time units, unless a person has hold of it. Nothing is
    /// signalled.
    void showTime(int position, int duration);

Q_SIGNALS:
    /// A person wants the movie to be at `position`, movie time units.
    void sought(int position);

protected:
    void mousePressEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] int valueAt(int x) const;
};

} // namespace kestro
