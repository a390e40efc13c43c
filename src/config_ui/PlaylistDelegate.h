#pragma once

#include <QStyledItemDelegate>

namespace kestro {

/// Draws a row of the playlist: the movie's picture, its name above its place, its duration at the end. The
/// editor holds the whole URL. Sizes follow the font. Owned by its table; main thread.
class PlaylistDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    /// The place of the picture in a row of that font: 16 to 9, two lines high.
    [[nodiscard]] static QSize pictureSize(const QFontMetrics& font);
    [[nodiscard]] static int rowHeight(const QFontMetrics& font);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Takes a click on the sign of what does not play.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

Q_SIGNALS:
    /// The sign that stands where the picture of a movie would, had it been opened, was clicked.
    void signClicked(const QModelIndex& index);

private:
    static void paintPicture(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                             const QRect& place);
    static void paintTexts(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                           const QRect& place);
};

} // namespace kestro
