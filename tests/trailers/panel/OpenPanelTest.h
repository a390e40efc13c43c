#pragma once

#include "trailers/panel/PanelTest.h"
#include "trailers/panel/PanelWindow.h"
#include "ui_TrailerCont.h"

#include <QMessageBox>
#include <QTest>

namespace kestro {

/// The panel as a person has it before them, once open() was called.
class OpenPanelTest : public PanelTest {
protected:
    void open()
    {
        m_panel = std::make_unique<TrailerPanel>(*m_controller, m_movies, m_services);
        m_panel->showPanel(m_receiver);
        ASSERT_TRUE(waitUntil([this] { return m_panel->panel().isActiveWindow(); }));
    }
    void openWith(int trailers)
    {
        storeTrailers(trailers);
        open();
    }
    [[nodiscard]] Ui::TrailerCont& controls() { return m_panel->panel().controls(); }
    [[nodiscard]] TrailerListView& table() { return *controls().listView; }
    [[nodiscard]] QString state() { return controls().stateField->text(); }
    [[nodiscard]] QStringList urls() { return *list().scanedURLList(); }
    void select(std::initializer_list<int> rows)
    {
        table().clearSelection();
        for (const int row : rows)
            table().selectionModel()->select(table().model()->index(row, 0),
                                             QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
    static void activate(QWidget& window)
    {
        window.show();
        window.activateWindow();
        ASSERT_TRUE(waitUntil([&] { return window.isActiveWindow(); }));
    }
    void clickHeader(int column)
    {
        const QHeaderView& header = *table().horizontalHeader();
        const QPoint place(header.sectionViewportPosition(column) + header.sectionSize(column) / 2,
                           header.height() / 2);
        QTest::mouseClick(header.viewport(), Qt::LeftButton, {}, place);
    }
    [[nodiscard]] std::pair<int, Qt::SortOrder> indicator()
    {
        const QHeaderView& header = *table().horizontalHeader();
        return {header.sortIndicatorSection(), header.sortIndicatorOrder()};
    }
    // The alert that `action` raises, its button pressed: title, text, buttons.
    template <typename Action>
    [[nodiscard]] QStringList alertOf(Action action)
    {
        QStringList seen;
        answerModal([&](QWidget& window) {
            auto& box = dynamic_cast<QMessageBox&>(window);
            seen = {box.windowTitle(), box.text()};
            for (QAbstractButton* button : box.buttons())
                seen.append(button->text());
            box.buttons().first()->click();
        });
        action();
        return seen;
    }

    NotingReceiver m_receiver;
    std::unique_ptr<TrailerPanel> m_panel;
    const QStringList m_alert{QStringLiteral("Alert"),
                              QStringLiteral("Failed to create movie.\nPlease try again."),
                              QStringLiteral("OK")};
};

} // namespace kestro
