#include "trailers/panel/TrailerPanel.h"

#include "trailers/panel/LatestPanel.h"
#include "trailers/panel/OpenPanelTest.h"
#include "trailers/panel/PreviewWindow.h"
#include "widgets/MoviePreview.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QScreen>

namespace kestro {

class TrailerPanelTest : public OpenPanelTest {
protected:
    /// Where Tab goes from a control.
    static QWidget* nextStop(const QWidget& control)
    {
        QWidget* next = control.nextInFocusChain();
        while (next->focusPolicy() == Qt::NoFocus)
            next = next->nextInFocusChain();
        return next;
    }
};

TEST_F(TrailerPanelTest, showPanel_showsTheListAsItWasLoaded)
{
    openWith(3);
    EXPECT_TRUE(m_panel->panel().isVisible());
    EXPECT_EQ(table().model()->rowCount(), 3);
    EXPECT_EQ(state(), QStringLiteral("0/3"));
    EXPECT_EQ(controls().urlField->text(), QStringLiteral("http://h/trailers/"));
    EXPECT_EQ(controls().scanBtn->text(), QStringLiteral("Scan"));
    EXPECT_FALSE(controls().progress->isVisible());
}

TEST_F(TrailerPanelTest, showPanel_makesItTheKeyWindow_whenItIsShownAlready)
{
    open();
    activate(m_panel->previewWin());
    m_panel->showPanel(m_receiver);
    EXPECT_TRUE(waitUntil([this] { return m_panel->panel().isActiveWindow(); }));
}

TEST_F(TrailerPanelTest, stateField_countsWhatIsSelected_whenTheSelectionChanges)
{
    openWith(5);
    select({1, 3});
    EXPECT_EQ(state(), QStringLiteral("2/5"));
    table().selectAll();
    EXPECT_EQ(state(), QStringLiteral("5/5"));
    table().clearSelection();
    EXPECT_EQ(state(), QStringLiteral("0/5"));
}

TEST_F(TrailerPanelTest, stateField_isZero_whenThereIsNoList)
{
    open();
    EXPECT_EQ(state(), QStringLiteral("0/0"));
    EXPECT_EQ(controls().stateLabel->text(), QStringLiteral("Trailers selected:"));
    EXPECT_LT(controls().stateLabel->geometry().right(), controls().stateField->geometry().left());
    EXPECT_EQ(table().model()->rowCount(), 0);
}

TEST_F(TrailerPanelTest, buttons_areEnabled_whenTheyHaveARow)
{
    openWith(2);
    EXPECT_FALSE(controls().previewBtn->isEnabled());
    EXPECT_FALSE(controls().saveBtn->isEnabled());
    EXPECT_FALSE(controls().addBtn->isEnabled());
    EXPECT_TRUE(controls().latestBtn->isEnabled());
    select({0});
    EXPECT_TRUE(controls().previewBtn->isEnabled());
    EXPECT_TRUE(controls().saveBtn->isEnabled());
    EXPECT_TRUE(controls().addBtn->isEnabled());
}

TEST_F(TrailerPanelTest, tab_goesThroughTheButtonsAsTheyStand)
{
    openWith(2);
    select({0});
    QPushButton* const close = controls().buttons->button(QDialogButtonBox::Close);
    const QList<QPushButton*> expected{controls().addBtn,  controls().latestBtn, controls().previewBtn,
                                       controls().saveBtn, controls().clearBtn,  close};
    for (qsizetype i = 1; i < expected.size(); ++i) {
        const QPoint before = expected[i - 1]->mapTo(&m_panel->panel(), QPoint());
        const QPoint here = expected[i]->mapTo(&m_panel->panel(), QPoint());
        EXPECT_TRUE(here.y() > before.y() || (here.y() == before.y() && here.x() > before.x())) << i;
        EXPECT_EQ(nextStop(*expected[i - 1]), expected[i]) << i;
    }
}

TEST_F(TrailerPanelTest, close_closesThePanel)
{
    open();
    controls().buttons->button(QDialogButtonBox::Close)->click();
    EXPECT_FALSE(m_panel->panel().isVisible());
}

TEST_F(TrailerPanelTest, addURL_sendsTheSelectedURLsInTheTablesOrder)
{
    openWith(4);
    select({3, 0});
    controls().addBtn->click();
    EXPECT_EQ(m_receiver.given, (QList<QList<QUrl>>{{QUrl(urlOf(3)), QUrl(urlOf(0))}}));
}

TEST_F(TrailerPanelTest, addURL_skipsWhatMakesNoURL)
{
    list().store({record("http://h:x/a.mov"), record("http://h/b.mov")});
    open();
    table().selectAll();
    m_panel->addURL();
    EXPECT_EQ(m_receiver.given, QList<QList<QUrl>>{{QUrl(QStringLiteral("http://h/b.mov"))}});
}

TEST_F(TrailerPanelTest, addURL_sendsAnEmptyList_whenNothingIsSelected)
{
    openWith(2);
    m_panel->addURL();
    ASSERT_EQ(m_receiver.given.size(), 1);
    EXPECT_TRUE(m_receiver.given[0].isEmpty());
}

TEST_F(TrailerPanelTest, addURL_sendsToWhomWasSetLast)
{
    openWith(1);
    NotingReceiver other;
    m_panel->setSaver(&other);
    m_panel->addURL();
    m_panel->setSaver(nullptr);
    m_panel->addURL();
    EXPECT_EQ(other.given.size(), 1);
    EXPECT_TRUE(m_receiver.given.isEmpty());
}

TEST_F(TrailerPanelTest, addLatest_sendsTheEntryAlone)
{
    list().store({record("http://h/b.mov", "640 x 360"), record("http://h/a.mov", "320 x 180")});
    open();
    QStringList offered;
    answerModal([&](QWidget& window) {
        auto& popup = *window.findChild<QComboBox*>(QStringLiteral("resPopup"));
        for (int item = 0; item < popup.count(); ++item)
            offered.append(popup.itemText(item));
        popup.setCurrentIndex(1);
        window.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok)->click();
    });
    controls().latestBtn->click();
    EXPECT_EQ(offered, (QStringList{QStringLiteral("320"), QStringLiteral("640")}));
    EXPECT_EQ(m_receiver.given, QList<QList<QUrl>>{{QUrl(QStringLiteral("auto://LatestTrailers/6/640"))}});
}

TEST_F(TrailerPanelTest, addLatest_sendsNothing_whenItIsGivenUp)
{
    openWith(1);
    answerModal([](QWidget& window) {
        window.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
    });
    controls().latestBtn->click();
    EXPECT_TRUE(m_receiver.given.isEmpty());
}

TEST_F(TrailerPanelTest, preview_playsTheSelectedTrailer)
{
    openWith(3);
    m_movies.describe(urlOf(1), {.naturalSize = {200, 100}});
    select({1});
    Q_EMIT table().doubleAction();
    EXPECT_TRUE(m_panel->previewWin().isVisible());
    EXPECT_EQ(m_panel->previewWin().windowTitle(), QStringLiteral("001.mov"));
    EXPECT_EQ(m_panel->previewWin().qtViewer().movie()->rate(), 1);
}

TEST_F(TrailerPanelTest, preview_bringsItsWindowToTheFront_whenItIsShownAlready)
{
    openWith(1);
    m_movies.describe(urlOf(0), {});
    select({0});
    m_panel->preview();
    activate(m_panel->panel());
    m_panel->preview();
    EXPECT_TRUE(waitUntil([this] { return m_panel->previewWin().isActiveWindow(); }));
}

TEST_F(TrailerPanelTest, preview_doesNothing_whenNoRowIsSelected)
{
    openWith(3);
    m_panel->preview();
    EXPECT_TRUE(m_movies.tried().empty());
    EXPECT_FALSE(m_panel->previewWin().isVisible());
}

TEST_F(TrailerPanelTest, preview_alerts_whenNoMovieCanBeMade)
{
    openWith(1);
    select({0});
    EXPECT_EQ(alertOf([this] { controls().previewBtn->click(); }), m_alert);
    EXPECT_EQ(m_panel->previewWin().qtViewer().movie(), nullptr);
}

TEST_F(TrailerPanelTest, preview_alerts_whenALoadingMovieTurnsOutToBeNone)
{
    openWith(1);
    m_movies.describe(urlOf(0), {.loadsAfter = 1, .failsLoading = true});
    select({0});
    const QStringList seen = alertOf([this] {
        m_panel->preview();
        m_timers.advance(2);
        QCoreApplication::processEvents();
    });
    EXPECT_EQ(seen, m_alert);
}

TEST_F(TrailerPanelTest, close_savesTheListAndClosesThePreview_alsoWhenNothingChanged)
{
    openWith(1);
    ASSERT_TRUE(list().saveList());
    ASSERT_TRUE(QFile::remove(path()));
    m_movies.describe(urlOf(0), {});
    select({0});
    m_panel->preview();
    m_panel->close();
    EXPECT_FALSE(m_panel->panel().isVisible());
    EXPECT_FALSE(m_panel->previewWin().isVisible());
    EXPECT_EQ(m_panel->previewWin().qtViewer().movie()->rate(), 0);
    EXPECT_TRUE(QFile::exists(path()));
}

TEST_F(TrailerPanelTest, close_savesTheList_whenTheUserClosesTheWindow)
{
    openWith(1);
    QTest::keyClick(&m_panel->panel(), Qt::Key_Escape);
    EXPECT_FALSE(m_panel->panel().isVisible());
    EXPECT_TRUE(QFile::exists(path()));
    m_panel->addURL();
    EXPECT_EQ(m_receiver.given.size(), 1);
}

TEST_F(TrailerPanelTest, close_doesNothing_whenItWasNeverShown)
{
    storeTrailers(1);
    m_panel = std::make_unique<TrailerPanel>(*m_controller, m_movies, m_services);
    m_panel->close();
    EXPECT_FALSE(QFile::exists(path()));
}

TEST_F(TrailerPanelTest, close_letsGoOfTheSaver)
{
    openWith(1);
    m_panel->close();
    m_panel->addURL();
    EXPECT_TRUE(m_receiver.given.isEmpty());
}

TEST_F(TrailerPanelTest, clear_emptiesTheTable_andLeavesTheCountAndTheFile)
{
    openWith(3);
    ASSERT_TRUE(list().saveList());
    const QByteArray before = bytesOf(path());
    controls().clearBtn->click();
    EXPECT_EQ(table().model()->rowCount(), 0);
    EXPECT_FALSE(list().scanedURLList());
    EXPECT_EQ(state(), QStringLiteral("0/3"));
    EXPECT_EQ(bytesOf(path()), before);
}

TEST_F(TrailerPanelTest, clear_countsAnew_whenRowsWereSelected)
{
    openWith(3);
    select({1});
    controls().clearBtn->click();
    EXPECT_EQ(state(), QStringLiteral("0/0"));
}

TEST_F(TrailerPanelTest, clear_reachesNoPanel_whenThatIsGone)
{
    openWith(1);
    m_panel.reset();
    m_controller->clear();
    EXPECT_EQ(list().count(), 0);
}

TEST_F(TrailerPanelTest, controls_canBeReachedAndNamed)
{
    openWith(1);
    EXPECT_EQ(controls().urlLabel->buddy(), controls().urlField);
    EXPECT_EQ(controls().findLabel->buddy(), controls().findField);
    EXPECT_FALSE(table().accessibleName().isEmpty());
    EXPECT_FALSE(controls().progress->accessibleName().isEmpty());
    for (QPushButton* button : m_panel->panel().findChildren<QPushButton*>())
        EXPECT_TRUE(button->focusPolicy() & Qt::TabFocus) << button->objectName().toStdString();
    QTest::keyClick(&m_panel->panel(), Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(controls().findField->hasFocus());
}

TEST_F(TrailerPanelTest, returnKey_pressesTheButtonWithTheFocus)
{
    openWith(1);
    select({0});
    controls().addBtn->setFocus();
    QTest::keyClick(controls().addBtn, Qt::Key_Return);
    EXPECT_EQ(m_receiver.given.size(), 1);
}

TEST_F(TrailerPanelTest, panel_fitsOntoTheScreen)
{
    open();
    const QSize room = m_panel->panel().screen()->availableSize();
    EXPECT_LE(m_panel->panel().width(), room.width());
    EXPECT_LE(m_panel->panel().minimumSizeHint().width(), 512); // 1024 x 768 at 200 %
    EXPECT_LE(m_panel->panel().minimumSizeHint().height(), 384);
}

TEST_F(TrailerPanelTest, menu_sortsAndAdds_withoutAMouse)
{
    openWith(2);
    const auto act = [this](const QString& text) {
        for (QAction* action : table().actions())
            if (action->text() == text) action->trigger();
    };
    act(QStringLiteral("Sort by &URL"));
    EXPECT_EQ(indicator(), std::pair(int(TrailerTableModel::Url), Qt::AscendingOrder));
    act(QStringLiteral("A&dd"));
    EXPECT_TRUE(m_receiver.given.isEmpty());
    select({0});
    act(QStringLiteral("A&dd"));
    EXPECT_EQ(m_receiver.given.size(), 1);
}

} // namespace kestro
