#include "windows/AllWindows.h"

#include "config_ui/StarterPane.h"
#include "support/WaitUntil.h"
#include "trailers/MemoryFetch.h"
#include "trailers/panel/PanelWindow.h"
#include "trailers/panel/PreviewWindow.h"

#include <QApplication>
#include <QDir>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>

namespace kestro {

namespace {

const QString ofTheCode = QStringLiteral("en");

/// As on desktops whose buttons have pictures: they take the most room.
class PicturesInButtons final : public QProxyStyle {
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override
    {
        if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 1;
        return QProxyStyle::styleHint(hint, option, widget, result);
    }
};

EntryFacts nothingKnown(const QUrl&, const std::stop_token&)
{
    return {.seconds = 60, .picture = {}, .fault = MovieFault{MovieFault::Kind::NoFile}};
}

TrailerRecord trailer(const QString& url)
{
    TrailerRecord made;
    made.url = url;
    made.size = QStringLiteral("480 x 204");
    made.date = QStringLiteral("2008/03/14");
    return made;
}

} // namespace

AllWindows::AllWindows(const QString& language)
    : m_translations(QLocale(language))
    , m_trailers({m_home.path(), {}, m_home.path(), {}, std::make_unique<MemoryFetch>()})
{
    QApplication::setStyle(new PicturesInButtons); // the application owns it
    fill();
    m_preferences = std::make_unique<PreferencesWindow>(parts());
    m_doctor = std::make_unique<DoctorWindow>(QStringLiteral("/usr/bin/env"), nullptr);
    m_doctor->setAttribute(Qt::WA_DeleteOnClose, false);
    m_more = std::make_unique<MoreWindow>(m_home.filePath(QStringLiteral("kestro.conf")), nullptr);
    m_more->setAttribute(Qt::WA_DeleteOnClose, false);
    m_latestPanel = std::make_unique<LatestPanel>();
    m_trailerPanel = std::make_unique<TrailerPanel>(m_trailers, m_movies, m_services);
    m_sheet = std::make_unique<ConfigSheet>(m_saver, m_trailerPanel.get(), nothingKnown, nullptr, &m_state);
    m_themePanel = std::make_unique<ThemePanel>(m_sheet->model(), m_movies, m_sheet.get(), m_services);
    m_hoursPanel = std::make_unique<HoursPanel>(PlayTime(), m_sheet.get());
    m_trailerPanel->showPanel(m_sheet->model());
    m_themePanel->showIDVDThemes();
    for (QWidget* const window : windows())
        window->show();
    const auto& starter = *m_sheet->findChild<StarterPane*>();
    for (const QPushButton* const add : starter.buttons())
        EXPECT_TRUE(waitUntil([add] { return add->isVisible(); })) << qPrintable(add->accessibleName());
    QApplication::processEvents();
}

AllWindows::~AllWindows() = default;

void AllWindows::fill()
{
    m_trailers.list().store(
        {trailer(QStringLiteral("http://h/a.mov")), trailer(QStringLiteral("http://h/b.mov"))});
    m_saver.store().setPlist({{QStringLiteral("Ver"), QStringLiteral("5")},
                              {QStringLiteral("FullScreenMode"), QStringLiteral("0")}});
    m_machine.putVideo(QStringLiteral("a.mp4"));
    m_machine.putTheme(QStringLiteral("Contents/Resources/1.theme/a.mov"));
    m_machine.putTheme(
        idvdFishMoviePath.mid(dvdProgram.size() + 1)); // the playlist is that, and not the intro
    m_machine.putIntro();
}

PreferencesWindow::Parts AllWindows::parts()
{
    const QString program = QStringLiteral("/usr/bin/env");
    return {[this] { return std::make_unique<FakePreview>(m_asked); },
            program,
            {m_home.filePath(QStringLiteral("kestro.conf")),
             IdleAutostart(m_home.filePath(QStringLiteral("kestro-idle.desktop")), {}), program,
             QDBusConnection(QStringLiteral("none"))},
            XscreensaverList(m_home.filePath(QStringLiteral("list")), program),
            m_state};
}

QStringList AllWindows::languages()
{
    QStringList found{ofTheCode};
    for (const QString& file :
         QDir(Translations::packagedFolder()).entryList({QStringLiteral("kestro_*.qm")}))
        found.append(file.section(u'.', 0, 0).section(u'_', 1));
    return found;
}

QList<QWidget*> AllWindows::windows() const
{
    return {m_preferences.get(),
            m_doctor.get(),
            m_more.get(),
            m_sheet.get(),
            m_sheet->findChild<URLPanel*>(),
            m_themePanel.get(),
            &m_trailerPanel->panel(),
            m_latestPanel.get(),
            &m_trailerPanel->previewWin(),
            m_hoursPanel.get()};
}

QList<QWidget*> AllWindows::seenIn(const QWidget& window)
{
    QList<QWidget*> seen;
    for (QWidget* const child : window.findChildren<QWidget*>())
        if (child->window() == &window && child->isVisibleTo(&window)) seen.append(child);
    return seen;
}

} // namespace kestro
