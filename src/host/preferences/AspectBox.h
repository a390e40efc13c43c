#pragma once

#include <QPointer>
#include <QWidget>

namespace kestro {

/// Keeps one widget in a given shape, as large as there is room, in the middle; black until there is one.
/// Owned as any widget is. Main thread; points.
class AspectBox final : public QWidget {
    Q_OBJECT

public:
    explicit AspectBox(QWidget* parent = nullptr);

    /// Becomes the parent of `content`, and shows it. Once.
    void setContent(QWidget& content);

    /// Width and height of the shape, in any unit; an empty one leaves things as they are.
    void setShape(QSize shape);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QRect place() const;
    void placeContent();

    QPointer<QWidget> m_content;
    QSize m_shape{16, 9};
};

} // namespace kestro
