#include "host/preferences/PreferencesWindow.h"

#include "host/preferences/FakePreview.h"
#include "host/preferences/MoreWindow.h"
#include "host/preferences/PreferencesTest.h"

#include <QEvent>
#include <QFile>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <csignal>

namespace kestro {

namespace {

class PreferencesWindowTest : public PreferencesTest {
protected:
    using Maker = std::function<std::unique_ptr<Preview>()>;

    [[nodiscard]] Maker previews()
    {
        return [this] { return std::make_unique<FakePreview>(asked); };
    }
    [[nodiscard]] std::unique_ptr<PreferencesWindow> makeWindow(Maker maker, const QString& trial = {})
    {
        return std::make_unique<PreferencesWindow>(PreferencesWindow::Parts{
            std::move(maker),
            trial,
            {folder.filePath(QStringLiteral("kestro.conf")),
             IdleAutostart(folder.filePath(QStringLiteral("kestro-idle.desktop")), {}),
             QStringLiteral("/usr/bin/env"), QDBusConnection(QStringLiteral("none"))},
            XscreensaverList(folder.filePath(QStringLiteral("list")), QStringLiteral("/usr/bin/env")),
            state});
    }
    [[nodiscard]] static bool isRunning(PreferencesWindow& window)
    {
        return window.preview() && window.preview()->isRunning();
    }
    /// A shown window whose preview runs.
    [[nodiscard]] std::unique_ptr<PreferencesWindow> shownWindow(const QString& trial = {})
    {
        auto window = makeWindow(previews(), trial);
        window->show();
        EXPECT_TRUE(waitUntil([&] { return isRunning(*window); }));
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
    Asked asked;
};

/// Whether a widget was ever painted.
class PaintWatch final : public QObject {
public:
    explicit PaintWatch(QWidget& watched) { watched.installEventFilter(this); }
    bool eventFilter(QObject*, QEvent* event) override
    {
        wasPainted = wasPainted || event->type() == QEvent::Paint;
        return false;
    }
    bool wasPainted = false;
};

/// The number that a program has written to a file; 0 as long as it has not.
int numberIn(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed().toInt() : 0;
}

const QString options = QStringLiteral("&Options…");
const QString tryIt = QStringLiteral("&Try It");

} // namespace

TEST_F(PreferencesWindowTest, preview_isMade_onceTheWindowWasPainted)
{
    std::unique_ptr<PaintWatch> watch;
    int made = 0;
    bool wasPainted = false;
    const auto window = makeWindow([&] {
        ++made;
        wasPainted = watch->wasPainted;
        return std::make_unique<FakePreview>(asked);
    });
    watch = std::make_unique<PaintWatch>(button(*window, options));
    window->show();
    ASSERT_TRUE(waitUntil([&] { return isRunning(*window); }));
    EXPECT_TRUE(wasPainted);
    window->repaint();
    QCoreApplication::processEvents();
    EXPECT_EQ(made, 1);
}

TEST_F(PreferencesWindowTest, preview_hasTheShapeOfTheMainScreen)
{
    const auto window = shownWindow();
    const QSize screen = window->screen()->size();
    const QSize preview = window->preview()->widget().size();
    EXPECT_NEAR(double(preview.width()) / preview.height(), double(screen.width()) / screen.height(), 0.01);
    EXPECT_TRUE(window->preview()->widget().isVisible());
}

TEST_F(PreferencesWindowTest, doctor_isAskedInAWindowOfItsOwn)
{
    const auto window = shownWindow(program("test \"$1\" = doctor && echo looked"));
    button(*window, QStringLiteral("Something &Wrong?")).click();
    const auto* const report = window->findChild<QPlainTextEdit*>();
    ASSERT_NE(report, nullptr);
    EXPECT_TRUE(report->window()->isVisible());
    EXPECT_NE(report->window(), window.get());
    EXPECT_TRUE(waitUntil([report] { return report->toPlainText() == u"looked\n"; }));
}

TEST_F(PreferencesWindowTest, more_opensAWindowOfItsOwn)
{
    const auto window = shownWindow();
    button(*window, QStringLiteral("&More…")).click();
    const auto* const more = window->findChild<MoreWindow*>();
    ASSERT_NE(more, nullptr);
    EXPECT_TRUE(more->isVisible());
    EXPECT_TRUE(more->isWindow());
}

TEST_F(PreferencesWindowTest, options_openOverTheWindow)
{
    const auto window = shownWindow();
    QTest::mouseClick(&button(*window, options), Qt::LeftButton);
    EXPECT_EQ(asked.journal, QStringList{QStringLiteral("options over Kestro Settings")});
}

TEST_F(PreferencesWindowTest, options_openWhileTheSaverStillLooksForAMovie)
{
    std::unique_ptr<PreferencesWindow> window;
    asked.whileStarting = [&] { QTest::mouseClick(&button(*window, options), Qt::LeftButton); };
    window = makeWindow(previews());
    window->show();
    ASSERT_TRUE(waitUntil([&] { return isRunning(*window); }));
    EXPECT_EQ(asked.journal, QStringList{QStringLiteral("options over Kestro Settings")});
}

TEST_F(PreferencesWindowTest, options_openOnceTheyCan_whenTheyAreAskedForBefore)
{
    const auto window = makeWindow(previews());
    QTest::mouseClick(&button(*window, options), Qt::LeftButton);
    QTest::mouseClick(&button(*window, options), Qt::LeftButton);
    EXPECT_EQ(asked.journal, QStringList());
    window->show();
    ASSERT_TRUE(waitUntil([&] { return !asked.journal.isEmpty(); }));
    QCoreApplication::processEvents();
    EXPECT_EQ(asked.journal, QStringList{QStringLiteral("options over Kestro Settings")});
}

TEST_F(PreferencesWindowTest, options_haveTheKeysFirst)
{
    const auto window = shownWindow();
    window->activateWindow();
    ASSERT_TRUE(waitUntil([&] { return window->isActiveWindow(); }));
    EXPECT_EQ(window->focusWidget(), &button(*window, options));
}

TEST_F(PreferencesWindowTest, tab_goesThroughTheButtonsFromTheFirst)
{
    const auto window = shownWindow();
    const QWidget* at = &button(*window, options);
    for (const QString& next : {tryIt, QStringLiteral("&Close")}) {
        do
            at = at->nextInFocusChain();
        while (at->focusPolicy() == Qt::NoFocus);
        EXPECT_EQ(at, &button(*window, next)) << qPrintable(next);
    }
}

TEST_F(PreferencesWindowTest, options_areDisabled_whenTheSaverHasNone)
{
    asked.hasOptions = false;
    const auto window = shownWindow();
    EXPECT_FALSE(button(*window, options).isEnabled());
}

TEST_F(PreferencesWindowTest, alert_says_whenWhatPlaysMoviesCannotBeLoaded)
{
    const auto window = makeWindow([] { return nullptr; });
    window->show();
    ASSERT_TRUE(waitUntil([&] { return !alertOf(*window).isEmpty(); }));
    EXPECT_EQ(alertOf(*window), QStringLiteral("The screen saver cannot be loaded."));
    EXPECT_FALSE(button(*window, options).isEnabled());
}

TEST_F(PreferencesWindowTest, alert_says_whenTheSaverCannotBeMade)
{
    asked.isThere = false;
    const auto window = makeWindow(previews());
    window->show();
    ASSERT_TRUE(waitUntil([&] { return !alertOf(*window).isEmpty(); }));
    EXPECT_EQ(alertOf(*window), QStringLiteral("The screen saver cannot be loaded."));
    EXPECT_FALSE(button(*window, options).isEnabled());
}

TEST_F(PreferencesWindowTest, preview_standsStillFromTheStart_whenTheSaverIsTriedBeforeIt)
{
    const auto window = makeWindow(previews(), program("while :; do :; done"));
    window->tryIt();
    window->show();
    ASSERT_TRUE(waitUntil([&] { return window->preview() != nullptr; }));
    EXPECT_FALSE(window->preview()->isRunning());
}

TEST_F(PreferencesWindowTest, preview_standsStill_whileTheSaverIsTried)
{
    const QString go = folder.filePath(QStringLiteral("go"));
    const auto window = shownWindow(program("while [ ! -e '" + QFile::encodeName(go) + "' ]; do :; done"));
    QTest::mouseClick(&button(*window, tryIt), Qt::LeftButton);
    EXPECT_FALSE(isRunning(*window));
    EXPECT_FALSE(button(*window, tryIt).isEnabled());
    QFile(go).open(QIODevice::WriteOnly);
    ASSERT_TRUE(waitUntil([&] { return isRunning(*window); }));
    EXPECT_TRUE(button(*window, tryIt).isEnabled());
    EXPECT_EQ(alertOf(*window), QString());
}

TEST_F(PreferencesWindowTest, alert_says_whenTheTrialFails)
{
    const auto window = shownWindow(program("echo 'kestro: broken' >&2; exit 1"));
    QTest::mouseClick(&button(*window, tryIt), Qt::LeftButton);
    ASSERT_TRUE(waitUntil([&] { return !alertOf(*window).isEmpty(); }));
    EXPECT_EQ(alertOf(*window), QStringLiteral("kestro: broken"));
    EXPECT_TRUE(isRunning(*window));
}

TEST_F(PreferencesWindowTest, preview_standsStill_whileTheWindowIsMinimized)
{
    const auto window = shownWindow();
    window->setWindowState(Qt::WindowMinimized);
    ASSERT_TRUE(waitUntil([&] { return !isRunning(*window); }));
    window->setWindowState(Qt::WindowNoState);
    EXPECT_TRUE(waitUntil([&] { return isRunning(*window); }));
}

TEST_F(PreferencesWindowTest, close_endsThePreviewAndTheTrial)
{
    const QString told = folder.filePath(QStringLiteral("number"));
    const auto window =
        shownWindow(program("echo $$ >'" + QFile::encodeName(told) + "'; while :; do :; done"));
    QTest::mouseClick(&button(*window, tryIt), Qt::LeftButton);
    pid_t trial = 0;
    ASSERT_TRUE(waitUntil([&] { return (trial = numberIn(told)) > 0; }));
    QSignalSpy closed(window.get(), &PreferencesWindow::closed);
    QTest::mouseClick(&button(*window, QStringLiteral("&Close")), Qt::LeftButton);
    EXPECT_EQ(closed.count(), 1);
    EXPECT_FALSE(isRunning(*window));
    EXPECT_TRUE(waitUntil([trial] { return kill(trial, 0) != 0; }));
    EXPECT_EQ(asked.journal, QStringList{QStringLiteral("end")});
}

TEST_F(PreferencesWindowTest, escape_closesTheWindow)
{
    const auto window = shownWindow();
    QSignalSpy closed(window.get(), &PreferencesWindow::closed);
    window->activateWindow();
    ASSERT_TRUE(waitUntil([&] { return window->isActiveWindow(); }));
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
    const auto again = makeWindow(previews());
    EXPECT_EQ(again->size(), QSize(500, 420));
    EXPECT_EQ(again->pos(), QPoint(40, 50));
}

TEST_F(PreferencesWindowTest, window_isSmallEnoughForASmallScreenAtTwiceTheScale)
{
    const auto window = makeWindow(previews());
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
    EXPECT_EQ(keys.size(), 6);
}

} // namespace kestro
