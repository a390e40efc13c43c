#include "host/preferences/PreferencesWindow.h"

#include "host/preferences/PreferencesTest.h"

#include <QDialog>
#include <QFile>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

namespace kestro {

namespace {

class PreferencesWindowTest : public PreferencesTest {
protected:
    [[nodiscard]] std::unique_ptr<PreferencesWindow> makeWindow(SaverPreview::ViewFactory factory,
                                                                const QString& trial)
    {
        const auto sheet = [this](ConfigurableSaver& of, QWidget* over) {
            sheetOf = &of;
            sheets.push_back(new QDialog(over));
            return sheets.back();
        };
        return std::make_unique<PreferencesWindow>(PreferencesWindow::Parts{
            std::move(factory), sheet, trial,
            XscreensaverList(folder.filePath(QStringLiteral("list")), QStringLiteral("/usr/bin/env")),
            state});
    }
    /// A shown window whose preview runs.
    [[nodiscard]] std::unique_ptr<PreferencesWindow> shownWindow(const QString& trial = {})
    {
        auto window = makeWindow(views(), trial);
        window->show();
        EXPECT_TRUE(comesTrue([&] { return window->preview().isRunning(); }));
        return window;
    }
    [[nodiscard]] static QPushButton& button(QWidget& window, const QString& text)
    {
        for (auto* each : window.findChildren<QPushButton*>())
            if (each->text() == text) return *each;
        qFatal("no button %s", qPrintable(text));
    }
    [[nodiscard]] static QString alertOf(QWidget& window)
    {
        const auto* box = window.findChild<QMessageBox*>();
        return box ? box->text() : QString();
    }

    QSettings state{folder.filePath(QStringLiteral("state.conf")), QSettings::IniFormat};
    ConfigurableSaver* sheetOf = nullptr;
    std::vector<QDialog*> sheets;
};

const QString options = QStringLiteral("&Options…");
const QString tryIt = QStringLiteral("&Try it");

} // namespace

TEST_F(PreferencesWindowTest, preview_hasTheShapeOfTheMainScreen)
{
    const auto window = shownWindow();
    const QSize screen = window->screen()->size();
    const QSize preview = window->preview().size();
    EXPECT_NEAR(double(preview.width()) / preview.height(), double(screen.width()) / screen.height(), 0.01);
}

TEST_F(PreferencesWindowTest, options_openOneSheetOfTheSaver)
{
    const auto window = shownWindow();
    QTest::mouseClick(&button(*window, options), Qt::LeftButton);
    ASSERT_EQ(sheets.size(), 1U);
    EXPECT_EQ(sheetOf, saver.get());
    EXPECT_TRUE(sheets.front()->isVisible());
    EXPECT_TRUE(sheets.front()->isModal());
    sheets.front()->close();
    QTest::mouseClick(&button(*window, options), Qt::LeftButton);
    EXPECT_EQ(sheets.size(), 1U);
    EXPECT_TRUE(sheets.front()->isVisible());
}

TEST_F(PreferencesWindowTest, options_canBeOpened_whileTheSaverStillLooksForAMovie)
{
    std::unique_ptr<PreferencesWindow> window;
    bool wasEnabled = false;
    window = makeWindow(
        [&](const Rect& frame, Desktop&) {
            saver = std::make_shared<OptionSaver>(frame, journal);
            saver->whileStarting = [&] { wasEnabled = button(*window, options).isEnabled(); };
            return saver;
        },
        {});
    window->show();
    ASSERT_TRUE(comesTrue([&] { return saver && saver->isAnimating(); }));
    EXPECT_TRUE(wasEnabled);
}

TEST_F(PreferencesWindowTest, options_areDisabled_whenTheSaverHasNone)
{
    const auto window = makeWindow(
        [this](const Rect& frame, Desktop&) {
            return std::make_shared<FakeSaver>(frame, QStringLiteral("a"), journal);
        },
        {});
    window->show();
    ASSERT_TRUE(comesTrue([&] { return window->preview().isRunning(); }));
    EXPECT_FALSE(button(*window, options).isEnabled());
}

TEST_F(PreferencesWindowTest, alert_says_whenTheSaverCannotBeLoaded)
{
    const auto window = makeWindow([](const Rect&, Desktop&) { return nullptr; }, {});
    window->show();
    ASSERT_TRUE(comesTrue([&] { return !alertOf(*window).isEmpty(); }));
    EXPECT_EQ(alertOf(*window), QStringLiteral("The screen saver cannot be loaded."));
    EXPECT_FALSE(button(*window, options).isEnabled());
}

TEST_F(PreferencesWindowTest, preview_standsStill_whileTheSaverIsTried)
{
    const QString go = folder.filePath(QStringLiteral("go"));
    const auto window = shownWindow(program("while [ ! -e '" + QFile::encodeName(go) + "' ]; do :; done"));
    QTest::mouseClick(&button(*window, tryIt), Qt::LeftButton);
    EXPECT_FALSE(window->preview().isRunning());
    EXPECT_FALSE(button(*window, tryIt).isEnabled());
    QFile(go).open(QIODevice::WriteOnly);
    ASSERT_TRUE(comesTrue([&] { return window->preview().isRunning(); }));
    EXPECT_TRUE(button(*window, tryIt).isEnabled());
    EXPECT_EQ(alertOf(*window), QString());
}

TEST_F(PreferencesWindowTest, alert_says_whenTheTrialFails)
{
    const auto window = shownWindow(program("echo 'kestro: broken' >&2; exit 1"));
    QTest::mouseClick(&button(*window, tryIt), Qt::LeftButton);
    ASSERT_TRUE(comesTrue([&] { return !alertOf(*window).isEmpty(); }));
    EXPECT_EQ(alertOf(*window), QStringLiteral("kestro: broken"));
    EXPECT_TRUE(window->preview().isRunning());
}

TEST_F(PreferencesWindowTest, preview_standsStill_whileTheWindowIsMinimized)
{
    const auto window = shownWindow();
    window->setWindowState(Qt::WindowMinimized);
    ASSERT_TRUE(comesTrue([&] { return !window->preview().isRunning(); }));
    window->setWindowState(Qt::WindowNoState);
    EXPECT_TRUE(comesTrue([&] { return window->preview().isRunning(); }));
}

TEST_F(PreferencesWindowTest, close_endsThePreviewAndTheTrial)
{
    const auto window = shownWindow(program("while :; do :; done"));
    QTest::mouseClick(&button(*window, tryIt), Qt::LeftButton);
    QSignalSpy closed(window.get(), &PreferencesWindow::closed);
    QTest::mouseClick(&button(*window, QStringLiteral("&Close")), Qt::LeftButton);
    EXPECT_EQ(closed.count(), 1);
    EXPECT_FALSE(window->preview().isRunning());
    EXPECT_EQ(window->findChildren<QProcess*>().size(), 0);
    EXPECT_TRUE(journal.contains(QStringLiteral("stop")));
}

TEST_F(PreferencesWindowTest, escape_closesTheWindow)
{
    const auto window = shownWindow();
    QSignalSpy closed(window.get(), &PreferencesWindow::closed);
    window->activateWindow();
    ASSERT_TRUE(comesTrue([&] { return window->isActiveWindow(); }));
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_EQ(closed.count(), 1);
}

TEST_F(PreferencesWindowTest, window_comesBackAtItsPlace)
{
    {
        const auto window = shownWindow();
        window->setGeometry(40, 50, 500, 420);
        window->close();
    }
    const auto again = makeWindow(views(), {});
    EXPECT_EQ(again->size(), QSize(500, 420));
    EXPECT_EQ(again->pos(), QPoint(40, 50));
}

TEST_F(PreferencesWindowTest, window_isSmallEnoughForASmallScreenAtTwiceTheScale)
{
    const auto window = makeWindow(views(), {});
    EXPECT_LE(window->minimumSizeHint().width(), 512);
    EXPECT_LE(window->minimumSizeHint().height(), 384 - 40);
}

TEST_F(PreferencesWindowTest, buttons_canBeReachedByKeys)
{
    const auto window = shownWindow();
    QSet<QKeySequence> keys;
    for (const auto* each : window->findChildren<QPushButton*>()) {
        EXPECT_TRUE(each->text().contains(u'&')) << qPrintable(each->text());
        EXPECT_FALSE(keys.contains(each->shortcut())) << qPrintable(each->text());
        keys.insert(each->shortcut());
    }
    EXPECT_EQ(keys.size(), 4);
    EXPECT_EQ(window->preview().accessibleName(), QStringLiteral("Preview"));
}

} // namespace kestro
