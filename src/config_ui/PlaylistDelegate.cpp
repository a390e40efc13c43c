#include "config_ui/PlaylistDelegate.h"

#include "config_ui/MarkSigns.h"
#include "config_ui/PlaylistTable.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QWidget>

namespace kestro {

namespace {

constexpr int textMargin = 8;
constexpr double secondLineStrength = 0.7; ///< of the first line's colour

int margin(const QFontMetrics& font)
{
    return font.height() / 3;
}

QStyle& styleOf(const QStyleOptionViewItem& option)
{
    return option.widget != nullptr ? *option.widget->style() : *QApplication::style();
}

QColor textColour(const QStyleOptionViewItem& option)
{
    const bool isSelected = option.state.testFlag(QStyle::State_Selected);
    const bool isEnabled = option.state.testFlag(QStyle::State_Enabled);
    const auto group = !isEnabled                                    ? QPalette::Disabled
                       : option.state.testFlag(QStyle::State_Active) ? QPalette::Active
                                                                     : QPalette::Inactive;
    return option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text);
}

QColor fainter(QColor colour)
{
    colour.setAlphaF(colour.alphaF() * static_cast<float>(secondLineStrength));
    return colour;
}

/// The sign of what plays but has no picture.
void paintTriangle(QPainter& painter, const QRectF& place, const QColor& colour)
{
    const QPointF tip(place.right(), place.center().y());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(QPolygonF{place.topLeft(), tip, place.bottomLeft()});
}

QRect picturePlace(const QStyleOptionViewItem& option)
{
    const QSize size = PlaylistDelegate::pictureSize(option.fontMetrics);
    const int gap = margin(option.fontMetrics);
    const QRect place(option.rect.left() + gap,
                      option.rect.top() + (option.rect.height() - size.height()) / 2, size.width(),
                      size.height());
    return QStyle::visualRect(option.direction, option.rect, place);
}

QRect textPlace(const QStyleOptionViewItem& option)
{
    const int start =
        2 * margin(option.fontMetrics) + PlaylistDelegate::pictureSize(option.fontMetrics).width();
    const QRect place = option.rect.adjusted(start, 0, -margin(option.fontMetrics), 0);
    return QStyle::visualRect(option.direction, option.rect, place);
}

} // namespace

QSize PlaylistDelegate::pictureSize(const QFontMetrics& font)
{
    const int height = 2 * font.lineSpacing();
    return {height * 16 / 9, height};
}

int PlaylistDelegate::rowHeight(const QFontMetrics& font)
{
    return pictureSize(font).height() + margin(font) * 2;
}

QSize PlaylistDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const
{
    return {pictureSize(option.fontMetrics).width() * 3, rowHeight(option.fontMetrics)};
}

void PlaylistDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    styleOf(row).drawPrimitive(QStyle::PE_PanelItemViewItem, &row, painter, row.widget);
    painter->save();
    paintPicture(*painter, row, index, picturePlace(row));
    paintTexts(*painter, row, index, textPlace(row));
    painter->restore();
    if (!row.state.testFlag(QStyle::State_HasFocus)) return;
    QStyleOptionFocusRect focus;
    focus.QStyleOption::operator=(row);
    focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
    focus.backgroundColor = row.palette.color(QPalette::Base);
    styleOf(row).drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, row.widget);
}

// Where there is no picture, a sign stands: of a warning, of a page, or of nothing while it is looked for.
void PlaylistDelegate::paintPicture(QPainter& painter, const QStyleOptionViewItem& option,
                                    const QModelIndex& index, const QRect& place)
{
    const QImage picture = index.data(Qt::DecorationRole).value<QImage>();
    if (!picture.isNull()) {
        const QSize size = picture.size().scaled(place.size(), Qt::KeepAspectRatio);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.fillRect(place, Qt::black);
        const QRect shown = QStyle::alignedRect(option.direction, Qt::AlignCenter, size, place);
        return painter.drawImage(shown, picture);
    }
    painter.fillRect(place, option.palette.color(QPalette::AlternateBase));
    const bool isFault = index.data(PlaylistTable::FaultRole).toBool();
    if (!isFault && index.data(PlaylistTable::WaitingRole).toBool()) return;
    const int side = option.fontMetrics.height();
    const QRect sign = QStyle::alignedRect(option.direction, Qt::AlignCenter, {side, side}, place);
    if (!isFault) return paintTriangle(painter, sign, fainter(option.palette.color(QPalette::Text)));
    styleOf(option).standardIcon(QStyle::SP_MessageBoxWarning, &option, option.widget).paint(&painter, sign);
}

void PlaylistDelegate::paintTexts(QPainter& painter, const QStyleOptionViewItem& option,
                                  const QModelIndex& index, const QRect& place)
{
    const QFontMetrics& font = option.fontMetrics;
    const QString duration = index.data(PlaylistTable::DurationRole).toString();
    const auto mark = index.data(PlaylistTable::MarkRole).value<EntryMark>();
    const int signs = widthOfMarkSigns(mark, font.ascent());
    const int durationEnd = duration.isEmpty() ? 0 : font.horizontalAdvance(duration) + textMargin;
    const int end = durationEnd + (signs == 0 ? 0 : signs + textMargin);
    const QRect lines(place.left(), place.center().y() - font.lineSpacing(), place.width(),
                      font.lineSpacing() * 2);
    const QRect first = lines.adjusted(0, 0, 0, -font.lineSpacing());
    const QRect second = lines.adjusted(0, font.lineSpacing(), 0, 0);
    const QRect nameLine = QStyle::visualRect(option.direction, first, first.adjusted(0, 0, -end, 0));
    const auto start = QStyle::visualAlignment(option.direction, Qt::AlignLeft | Qt::AlignVCenter);

    painter.setFont(option.font);
    painter.setPen(textColour(option));
    painter.drawText(nameLine, int(start | Qt::TextSingleLine),
                     font.elidedText(option.text, Qt::ElideMiddle, nameLine.width()));
    painter.setPen(fainter(textColour(option)));
    const auto atEnd = QStyle::visualAlignment(option.direction, Qt::AlignRight | Qt::AlignVCenter);
    painter.drawText(first, int(atEnd | Qt::TextSingleLine), duration);
    const QRect signPlace(first.right() + 1 - durationEnd - signs, first.center().y() - font.ascent() / 2,
                          signs, font.ascent());
    paintMarkSigns(painter, mark, QStyle::visualRect(option.direction, first, signPlace), textColour(option));
    const QString detail = index.data(PlaylistTable::DetailRole).toString();
    const auto elided = index.data(PlaylistTable::FaultRole).toBool() ? Qt::ElideRight : Qt::ElideMiddle;
    painter.drawText(second, int(start | Qt::TextSingleLine),
                     font.elidedText(detail, elided, second.width()));
}

// What is learned of a movie changes its row, too; what is being typed there meanwhile stays.
void PlaylistDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    constexpr const char* shownText = "kestroShownText";
    const QVariant text = index.data(Qt::EditRole);
    if (editor->property(shownText) == text) return;
    editor->setProperty(shownText, text);
    QStyledItemDelegate::setEditorData(editor, index);
}

bool PlaylistDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                   const QStyleOptionViewItem& option, const QModelIndex& index)
{
    if (event->type() == QEvent::MouseButtonRelease && index.data(PlaylistTable::FaultRole).toBool()) {
        const auto& release = static_cast<const QMouseEvent&>(*event);
        const bool isOnSign = picturePlace(option).contains(release.position().toPoint());
        if (release.button() == Qt::LeftButton && isOnSign) Q_EMIT signClicked(index);
    }
    return QStyledItemDelegate::editorEvent(event, model, option, index);
}

// Both lines of the row are behind it.
void PlaylistDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                            const QModelIndex&) const
{
    editor->setGeometry(textPlace(option));
}

} // namespace kestro
