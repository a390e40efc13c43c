#pragma once

#include <QWidget>

namespace kestro {

/// Keeps one widget in a given shape, as large as there is room, in the middle. Owned as any widget is. Main
/// thread; points.
class AspectBox final : public QWidget {
    Q_OBJECT

public:
    /// Becomes the parent of `content`.
    explicit AspectBox(QWidget& content, QWidget* parent = nullptr);

    /// Width and height of the shape, in any unit; an empty one leaves things as they are.
    void setShape(QSize shape);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void place();

    QWidget& m_content;
    QSize m_shape{16, 9};
};

} // namespace kestro
