#pragma once

#include "config_ui/RQTableViewRowMove.h"
#include "platform/base/Clock.h"
#include "platform/display/desktop/ManualTimerSource.h"

#include <QApplication>
#include <QDrag>
#include <QHeaderView>
#include <QMimeData>
#include <QMouseEvent>
#include <QScrollBar>
#include <QStandardItemModel>

#include <gtest/gtest.h>
#include <memory>
#include <utility>
#include <vector>

namespace kestro::test {

/// A table that notes a drag instead of handing it to the desktop, and how often it reads its data anew.
class RecordingTable final : public RQTableViewRowMove {
public:
    struct Drag {
        QPixmap image;
        QPoint hotSpot;
        std::unique_ptr<QMimeData> pasteboard;
        Qt::DropActions allowed;
        Qt::DropAction proposed;
    };
    void reset() override
    {
        ++m_reloads;
        RQTableViewRowMove::reset();
    }

    std::vector<Drag> m_drags;
    Qt::DropAction m_dropAction = Qt::MoveAction; ///< what becomes of a drag
    int m_reloads = 0;

protected:
    Qt::DropAction runDrag(QDrag& drag, Qt::DropActions allowed, Qt::DropAction proposed) override
    {
        auto pasteboard = std::make_unique<QMimeData>();
        for (const QString& format : drag.mimeData()->formats())
            pasteboard->setData(format, drag.mimeData()->data(format));
        m_drags.push_back({drag.pixmap(), drag.hotSpot(), std::move(pasteboard), allowed, proposed});
        return m_dropAction;
    }
};

/// A table of 20 rows "0" … "19", each 20 points high, of which five are visible, and its delegate. The
/// timers stand still until they are advanced.
class RowMoveTest : public testing::Test {
protected:
    using Rows = std::vector<std::pair<int, int>>;
    inline static const Rows none;
    static constexpr int rowHeight = 20;
    static constexpr int visibleRows = 5;
    static constexpr int width = 200;

    void SetUp() override
    {
        setRows(20);
        m_table.setModel(&m_model);
        m_table.setTimerSource(m_timers);
        m_table.setFrameShape(QFrame::NoFrame);
        m_table.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_table.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        m_table.horizontalHeader()->hide();
        m_table.horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
        m_table.verticalHeader()->hide();
        m_table.verticalHeader()->setMinimumSectionSize(1);
        m_table.verticalHeader()->setDefaultSectionSize(rowHeight);
        m_table.setEditTriggers(QAbstractItemView::NoEditTriggers);
        m_table.resize(width, visibleRows * rowHeight);
        m_table.setRowMoveDelegate(delegate());
        m_table.show();
        QApplication::processEvents();
    }

    void setRows(int count)
    {
        m_model.clear();
        for (int i = 0; i < count; ++i)
            m_model.appendRow(new QStandardItem(QString::number(i)));
    }

    /// Lets rows move, moves them in the model, and notes what it is sent.
    RowMoveDelegate delegate()
    {
        RowMoveDelegate delegate;
        delegate.tableViewShouldMoveRowInColumn = [this](RQTableViewRowMove&, int row, int column) {
            m_asked.push_back({row, column});
            return m_may;
        };
        delegate.tableViewDidDepositRowAt = [this](RQTableViewRowMove&, int from, int to) {
            m_deposits.push_back({from, to});
            if (!m_deposited) return false;
            m_model.insertRow(to, m_model.takeRow(from));
            return true;
        };
        return delegate;
    }

    /// The middle of the row that is `row` rows below the top of the visible part.
    static QPoint onRow(int row) { return {width / 2, row * rowHeight + rowHeight / 2}; }

    void send(QEvent::Type type, QPoint at, Qt::MouseButton button, Qt::MouseButtons buttons,
              Qt::KeyboardModifiers modifiers = {})
    {
        const QPointF global = m_table.viewport()->mapToGlobal(QPointF(at));
        QMouseEvent event(type, at, global, button, buttons, modifiers);
        QApplication::sendEvent(m_table.viewport(), &event);
    }
    void press(QPoint at, Qt::KeyboardModifiers modifiers = {})
    {
        send(QEvent::MouseButtonPress, at, Qt::LeftButton, Qt::LeftButton, modifiers);
    }
    void drag(QPoint to) { send(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton); }
    void release(QPoint at) { send(QEvent::MouseButtonRelease, at, Qt::LeftButton, Qt::NoButton); }
    void dragRow(int from, int to, Qt::KeyboardModifiers modifiers = {})
    {
        press(onRow(from), modifiers);
        drag(onRow(from) + QPoint(0, 1));
        drag(onRow(to));
        release(onRow(to));
    }
    void pressKey(int key, Qt::KeyboardModifiers modifiers)
    {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(&m_table, &event);
    }

    /// The first texts of the table, as many as the visible part has.
    [[nodiscard]] std::string firstRows() const
    {
        QStringList texts;
        for (int i = 0; i < visibleRows; ++i)
            texts.append(m_model.item(i)->text());
        return texts.join(u' ').toStdString();
    }
    [[nodiscard]] std::vector<int> selectedRows() const
    {
        std::vector<int> rows;
        for (const QModelIndex& index : m_table.selectionModel()->selectedRows())
            rows.push_back(index.row());
        return rows;
    }
    [[nodiscard]] QImage screen() { return m_table.viewport()->grab().toImage(); }
    [[nodiscard]] int offset() const { return m_table.visibleRect().y(); }

    ManualClock m_clock;
    ManualTimerSource m_timers{m_clock};
    QStandardItemModel m_model;
    RecordingTable m_table;
    Rows m_asked;    ///< row, column
    Rows m_deposits; ///< from, to
    bool m_may = true;
    bool m_deposited = true;
};

} // namespace kestro::test
