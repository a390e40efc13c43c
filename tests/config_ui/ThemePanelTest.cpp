#include "config_ui/ThemePanel.h"

#include "config_ui/ThemeFolder.h"
#include "platform/base/Clock.h"
#include "platform/base/Random.h"
#include "platform/display/desktop/ManualTimerSource.h"
#include "platform/movie/MemoryMovie.h"
#include "widgets/ControllerBar.h"
#include "widgets/MoviePreview.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QTableView>
#include <QTest>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace kestro {

namespace {

/// Three movies, of which the second is recommended and the third cannot be read.
class ThemePanelTest : public test::ThemeFolderTest {
protected:
    ThemePanelTest()
    {
        const QString folder = QStringLiteral("/Contents/Resources/");
        m_urls = {QUrl::fromLocalFile(put(folder + QStringLiteral("0001_Plain.theme/Plain.mov"))),
                  QUrl::fromLocalFile(put(recomenedList[16].mid(program.size()))),
                  QUrl::fromLocalFile(put(folder + QStringLiteral("99_Broken.theme/Broken.mov")))};
        for (int row = 0; row < 2; ++row)
            m_movies.describe(m_urls[row].toString(QUrl::FullyEncoded), {});
    }

    [[nodiscard]] QTableView& table()
    {
        return *m_panel.findChild<QTableView*>(QStringLiteral("themeTable"));
    }
    [[nodiscard]] QPushButton& button(const char* name)
    {
        return *m_panel.findChild<QPushButton*>(QLatin1String(name));
    }
    [[nodiscard]] QVariant data(int row, int column, int role = Qt::DisplayRole)
    {
        return table().model()->index(row, column).data(role);
    }
    void select(const QList<int>& rows)
    {
        for (const int row : rows)
            table().selectionModel()->setCurrentIndex(
                table().model()->index(row, 0),
                (row == rows[0] ? QItemSelectionModel::ClearAndSelect : QItemSelectionModel::Select) |
                    QItemSelectionModel::Rows);
    }
    [[nodiscard]] float rate() { return m_panel.themeMovieView().movie()->rate(); }
    [[nodiscard]] QUrl shown() { return m_panel.themeMovieView().movie()->url(); }

    ManualClock m_clock;
    ManualTimerSource m_timers{m_clock};
    SeededRandom m_random{1};
    MemoryMovieLibrary m_movies{m_clock};
    QList<QUrl> m_urls;
    ThemePanel m_panel{m_playlist, m_movies, nullptr, {m_timers, m_clock, m_random}};
};

double luminance(const QColor& colour)
{
    const auto linear = [](double v) {
        return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

/// Of two colours, as the guidelines for accessible content work it out: 1 … 21.
double contrast(const QColor& a, const QColor& b)
{
    const double lighter = std::max(luminance(a), luminance(b));
    return (lighter + 0.05) / (std::min(luminance(a), luminance(b)) + 0.05);
}

} // namespace

TEST_F(ThemePanelTest, panel_isModalAndListsTheMovies_whenShown)
{
    EXPECT_EQ(table().model()->rowCount(), 0);
    const QSignalSpy reloaded(table().model(), &QAbstractItemModel::modelReset);
    m_panel.showIDVDThemes();
    EXPECT_EQ(reloaded.count(), 1);
    EXPECT_TRUE(m_panel.isVisible());
    EXPECT_EQ(m_panel.windowModality(), Qt::ApplicationModal);
    ASSERT_EQ(table().model()->rowCount(), 3);
    for (int row = 0; row < 3; ++row)
        EXPECT_EQ(data(row, ThemeTableModel::PathColumn).toString(), m_urls[row].toLocalFile());
    EXPECT_EQ(data(1, ThemeTableModel::ThemeColumn).toString(), QStringLiteral("Fish One"));
}

TEST_F(ThemePanelTest, panel_keepsItsRowsAndSelection_whenShownAgain)
{
    m_panel.showIDVDThemes();
    select({1});
    m_panel.reject();
    put(QStringLiteral("/late.mov"));
    const QSignalSpy reloaded(table().model(), &QAbstractItemModel::modelReset);
    m_panel.showIDVDThemes();
    EXPECT_EQ(reloaded.count(), 0);
    EXPECT_EQ(table().model()->rowCount(), 3);
    EXPECT_EQ(table().selectionModel()->selectedRows().size(), 1);
}

TEST_F(ThemePanelTest, panel_saysSo_whenThereAreNoMovies)
{
    ASSERT_TRUE(QDir(inRoot(program)).removeRecursively());
    m_panel.showIDVDThemes();
    EXPECT_EQ(m_panel.findChild<QLabel*>(QStringLiteral("explanation"))->text(),
              QStringLiteral("No theme movies were found."));
}

TEST_F(ThemePanelTest, keyboard_isTheTables_wheneverThePanelIsShown)
{
    m_panel.showIDVDThemes();
    select({0});
    button("stopButton").setFocus();
    m_panel.reject();
    m_panel.showIDVDThemes();
    EXPECT_EQ(m_panel.focusWidget(), &table());
}

TEST_F(ThemePanelTest, rows_sayTheirWholePath_whenPointedAt)
{
    m_panel.showIDVDThemes();
    for (int column = 0; column < ThemeTableModel::columnTotal; ++column)
        EXPECT_EQ(data(1, column, Qt::ToolTipRole).toString(), m_urls[1].toLocalFile());
}

TEST_F(ThemePanelTest, recommendedRows_areRedAndMarked_andOthersHaveTheTablesColour)
{
    m_panel.showIDVDThemes();
    for (int column = 0; column < ThemeTableModel::columnTotal; ++column) {
        const QColor colour = data(1, column, Qt::ForegroundRole).value<QColor>();
        EXPECT_GT(colour.red(), 190);
        EXPECT_LT(colour.green(), 120);
        EXPECT_LT(colour.blue(), 120);
        EXPECT_FALSE(data(0, column, Qt::ForegroundRole).isValid());
    }
    EXPECT_FALSE(data(1, ThemeTableModel::RecommendedColumn).toString().isEmpty());
    EXPECT_TRUE(data(0, ThemeTableModel::RecommendedColumn).toString().isEmpty());
    EXPECT_EQ(data(1, ThemeTableModel::RecommendedColumn, Qt::AccessibleTextRole).toString(),
              QStringLiteral("Recommended"));
}

TEST_F(ThemePanelTest, red_canBeRead_onALightAndOnADarkGround)
{
    m_panel.showIDVDThemes();
    const QSignalSpy repainted(table().model(), &QAbstractItemModel::dataChanged);
    for (const QColor& ground : {QColor(Qt::white), QColor(35, 38, 41), QColor(Qt::black)}) {
        QPalette palette = m_panel.palette();
        palette.setColor(QPalette::Base, ground);
        m_panel.setPalette(palette);
        const QColor red = data(1, 0, Qt::ForegroundRole).value<QColor>();
        EXPECT_GE(contrast(red, ground), 4.5) << qPrintable(ground.name());
    }
    ASSERT_EQ(repainted.count(), 1); // from light to dark
    EXPECT_EQ(repainted[0][0].toModelIndex(), table().model()->index(0, 0));
    EXPECT_EQ(repainted[0][1].toModelIndex(), table().model()->index(2, ThemeTableModel::columnTotal - 1));
}

TEST_F(ThemePanelTest, selecting_playsTheMovie_whenItCanBeRead)
{
    EXPECT_FALSE(button("playButton").isEnabled());
    EXPECT_FALSE(button("stopButton").isEnabled());
    m_panel.showIDVDThemes();
    select({1});
    EXPECT_EQ(shown(), m_urls[1]);
    EXPECT_EQ(rate(), 1);
    EXPECT_TRUE(button("playButton").isEnabled());
    EXPECT_TRUE(button("stopButton").isEnabled());
}

TEST_F(ThemePanelTest, selecting_showsTheMovieSelectedLast_whenThereAreSeveral)
{
    m_panel.showIDVDThemes();
    select({0, 1});
    EXPECT_EQ(shown(), m_urls[1]);
    select({1, 0});
    EXPECT_EQ(shown(), m_urls[0]);
    EXPECT_EQ(m_movies.alive().size(), 1U); // the panel holds on to none but that one
}

TEST_F(ThemePanelTest, selecting_showsTheMovieOfTheKeyboardsRow_whenARangeIsSelectedUpwards)
{
    m_panel.showIDVDThemes();
    auto& selection = *table().selectionModel();
    selection.setCurrentIndex(table().model()->index(0, 0), QItemSelectionModel::NoUpdate);
    selection.select({table().model()->index(0, 0), table().model()->index(1, 0)},
                     QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    EXPECT_EQ(shown(), m_urls[0]);
}

TEST_F(ThemePanelTest, selecting_previewsNothing_whenTheMovieCannotBeRead)
{
    m_panel.showIDVDThemes();
    select({1});
    select({2});
    EXPECT_EQ(m_panel.themeMovieView().movie(), nullptr);
    EXPECT_FALSE(button("playButton").isEnabled());
    EXPECT_TRUE(button("addButton").isEnabled());
}

TEST_F(ThemePanelTest, buttons_areOff_onceTheMovieTurnsOutToBeNone)
{
    m_movies.describe(m_urls[1].toString(), {.loadsAfter = 1, .failsLoading = true});
    m_panel.showIDVDThemes();
    select({1});
    EXPECT_TRUE(button("playButton").isEnabled());
    m_timers.advance(1.2);
    EXPECT_FALSE(button("playButton").isEnabled());
    EXPECT_FALSE(button("stopButton").isEnabled());
    m_movies.describe(m_urls[1].toString(), {});
    select({0});
    select({1});
    EXPECT_EQ(rate(), 1);
    EXPECT_TRUE(button("playButton").isEnabled());
}

TEST_F(ThemePanelTest, buttons_stopAndPlayTheMovie_whenClicked)
{
    m_panel.showIDVDThemes();
    select({0});
    button("stopButton").click();
    EXPECT_EQ(rate(), 0);
    button("playButton").click();
    EXPECT_EQ(rate(), 1);
}

TEST_F(ThemePanelTest, doubleClick_playsTheMovieOn_whenItWasStopped)
{
    m_panel.showIDVDThemes();
    select({0});
    button("stopButton").click();
    Q_EMIT table().doubleClicked(table().model()->index(0, 0));
    EXPECT_EQ(rate(), 1);
}

TEST_F(ThemePanelTest, movie_beginsAnew_whenItsRowIsSelectedAgain)
{
    m_panel.showIDVDThemes();
    select({0});
    m_clock.advance(1);
    EXPECT_GT(m_panel.themeMovieView().movie()->currentTime().timeValue, 0);
    table().clearSelection();
    select({0});
    EXPECT_EQ(m_panel.themeMovieView().movie()->currentTime().timeValue, 0);
    EXPECT_EQ(rate(), 1);
}

TEST_F(ThemePanelTest, movie_playsOn_whileOtherRowsAreSelectedToo)
{
    m_panel.showIDVDThemes();
    select({0});
    const auto movie = m_panel.themeMovieView().movie();
    table().selectionModel()->select(table().model()->index(1, 0),
                                     QItemSelectionModel::Select | QItemSelectionModel::Rows);
    EXPECT_EQ(m_panel.themeMovieView().movie(), movie);
}

TEST_F(ThemePanelTest, panel_opensWithItsFirstRowSelected_soThatDownGoesToTheSecond)
{
    m_panel.showIDVDThemes();
    ASSERT_NE(m_panel.themeMovieView().movie(), nullptr);
    EXPECT_EQ(shown(), m_urls[0]);
    EXPECT_EQ(table().selectionModel()->selectedRows().size(), 1);
    QTest::keyClick(&table(), Qt::Key_Down);
    EXPECT_EQ(shown(), m_urls[1]);
}

TEST_F(ThemePanelTest, panel_hasOneSetOfPlayControls)
{
    m_panel.showIDVDThemes();
    EXPECT_FALSE(m_panel.themeMovieView().controller().isVisible());
    EXPECT_TRUE(button("playButton").isVisible() && button("stopButton").isVisible());
}

TEST_F(ThemePanelTest, add_handsOnTheSelectedMoviesAndCloses_whenClicked)
{
    m_panel.showIDVDThemes();
    table().clearSelection();
    EXPECT_FALSE(button("addButton").isEnabled());
    select({2, 0, 1});
    button("addButton").click();
    EXPECT_EQ(m_playlist.received, m_urls);
    EXPECT_FALSE(m_panel.isVisible());
    EXPECT_EQ(m_panel.result(), QDialog::Accepted);
}

TEST_F(ThemePanelTest, cancel_handsOnNothingAndCloses_whenClicked)
{
    m_panel.showIDVDThemes();
    select({0});
    m_panel.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Cancel)->click();
    EXPECT_EQ(m_playlist.calls, 0);
    EXPECT_FALSE(m_panel.isVisible());
}

TEST_F(ThemePanelTest, escapeAndTheWindowsButton_cancel)
{
    m_panel.showIDVDThemes();
    select({0});
    QTest::keyClick(&m_panel, Qt::Key_Escape);
    EXPECT_FALSE(m_panel.isVisible());
    m_panel.showIDVDThemes();
    m_panel.close();
    EXPECT_FALSE(m_panel.isVisible());
    EXPECT_EQ(m_playlist.calls, 0);
}

TEST_F(ThemePanelTest, return_adds_whenPressedInTheTable)
{
    m_panel.showIDVDThemes();
    select({1});
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_EQ(m_playlist.received, QList<QUrl>{m_urls[1]});
}

TEST_F(ThemePanelTest, closing_leavesTheMoviePlaying)
{
    for (const int tag : {0, 1}) {
        m_panel.showIDVDThemes();
        select({tag});
        m_panel.closeIDVDThemesPanel(tag);
        EXPECT_FALSE(m_panel.isVisible());
        EXPECT_EQ(rate(), 1);
    }
}

TEST_F(ThemePanelTest, controls_canBeNamedAndReachedByKeys)
{
    EXPECT_FALSE(table().accessibleName().isEmpty());
    EXPECT_FALSE(m_panel.themeMovieView().accessibleName().isEmpty());
    for (const char* name : {"playButton", "stopButton", "addButton"})
        EXPECT_TRUE(button(name).text().contains(u'&')) << name;
}

TEST_F(ThemePanelTest, panel_fitsASmallScreen_whenItNeedNotBeLarger)
{
    EXPECT_LE(m_panel.minimumSizeHint().width(), 512); // half of 1024, as at twice the size
    EXPECT_LE(m_panel.minimumSizeHint().height(), 384);
}

TEST_F(ThemePanelTest, panel_staysOnTheScreen_whenItsLetteringIsLarge)
{
    QFont large = m_panel.font();
    large.setPixelSize(20);
    m_panel.setFont(large);
    m_panel.showIDVDThemes();
    const QSize screen = m_panel.screen()->availableSize();
    EXPECT_GT(m_panel.fontMetrics().averageCharWidth() * 96, screen.width()); // as it would be there
    EXPECT_LE(m_panel.width(), screen.width());
    EXPECT_LE(m_panel.height(), screen.height());
}

} // namespace kestro
