#include "config_ui/ConfigModel.h"

#include "config_ui/ConfigPanels.h"
#include "platform/base/FileName.h"
#include "platform/base/StoredValue.h"
#include "settings/BackSaverMenu.h"
#include "settings/ConfigurableSaver.h"
#include "settings/FolderEntry.h"
#include "settings/MovieURL.h"
#include "settings/Options.h"
#include "settings/Playlist.h"
#include "settings/Settings.h"
#include "settings/SettingsStore.h"
#include "settings/TrailerBrowser.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSettings>

#include <utility>

namespace kestro {

namespace {

const QString lastFolderKey = QStringLiteral("SSLastPath");
const QString slideShowExtension = QStringLiteral("slideSaver");

} // namespace

ConfigModel::ConfigModel(const Sources& sources)
    : m_sources(sources)
    , m_dropped(sources.panels, [this](const QStringList& files) { addMovieFiles(files); })
    , m_marks(m_playList, sources.saver.playlist().entryMarks())
{
    resetInterfaces();
}

ConfigModel::~ConfigModel()
{
    if (m_isBrowsing) closeTrailerPanel();
}

void ConfigModel::resetInterfaces()
{
    Settings& settings = m_sources.saver.settings();
    m_backSaverList = m_sources.saver.reloadBackSavers();
    m_backSaverItems = kestro::backSaverItems(m_backSaverList);
    m_controls.backSaverPopup = selectBackSaver(settings, m_backSaverItems);
    Q_EMIT backSaversReloaded();
    reloadPlayList();

    m_controls.soundChk = settings.isSoundOn();
    m_controls.partialModeRadio = settings.partialMode();
    m_controls.randomChk = settings.isRandomMode();
    m_controls.continueChk = settings.isContinue();
    m_controls.fadeoutChk = settings.fadeoutEffect();
    m_controls.backAndForthChk = settings.backAndForth();
    m_controls.fullScreenChk = settings.isFullScreen();
    m_controls.playModeRadio = settings.playMode();
    m_controls.timeIntervalField = fieldText(settings.timeInterval());
    m_controls.reposRadio = settings.reposition();
    m_controls.scaleSlider = settings.scaleFactor();

    checkFullScreen();
    checkDynamic();
    checkBackAndForthCondition();
}

void ConfigModel::reloadPlayList()
{
    Playlist& playlist = m_sources.saver.playlist();
    const QList<QUrl> urls = playlist.plistFileList();
    const QStringList texts = playlist.movieFileStrings(false);
    QList<PlaylistEntry> entries;
    entries.reserve(urls.size());
    for (qsizetype i = 0; i < urls.size(); ++i)
        entries.append({urls[i], texts[i]});
    m_default = playlist.isDefault() ? entries : QList<PlaylistEntry>();
    m_playList.reset(entries);
    m_marks.reset();
}

bool ConfigModel::isNothingChosen() const
{
    return m_playList.entries().isEmpty() || m_playList.entries() == m_default;
}

void ConfigModel::checkFullScreen()
{
    const bool isPartial = !m_controls.fullScreenChk;
    m_enabling.playModeRadio = !isPartial;
    m_enabling.partialModeRadio = isPartial;
    m_enabling.scaleSlider = isPartial;
    m_enabling.scaleField = isPartial;
    m_enabling.fadeoutChk = isPartial;
    m_enabling.backSaverPopup = isPartial;
    m_enabling.timeIntervalField = isPartial && m_controls.partialModeRadio == PartialModeFly;
    m_enabling.reposRadio = m_enabling.timeIntervalField;
    Q_EMIT controlsChanged();
}

// Full screen is not looked at here: the way of moving is only chosen where it is off.
void ConfigModel::checkDynamic()
{
    m_enabling.timeIntervalField = m_controls.partialModeRadio == PartialModeFly;
    m_enabling.reposRadio = m_enabling.timeIntervalField;
    Q_EMIT controlsChanged();
}

void ConfigModel::checkBackAndForthCondition()
{
    m_enabling.backAndForthChk = m_playList.entries().size() == 1;
    if (!m_enabling.backAndForthChk) m_controls.backAndForthChk = false;
    Q_EMIT controlsChanged();
}

void ConfigModel::closeConfig(int tag)
{
    if (tag != 0 && m_dropped.isLooking()) return m_dropped.whenAdded([this, tag] { closeConfig(tag); });
    m_dropped.giveUp();
    m_sources.panels.endSheet();
    if (tag == 0)
        resetInterfaces();
    else
        save();
    closeTrailerPanel();
}

void ConfigModel::closeTrailerPanel()
{
    m_isBrowsing = false;
    if (m_sources.trailers != nullptr) m_sources.trailers->close();
}

// The options in memory are whole before anybody is asked anything: the saver may read them meanwhile.
void ConfigModel::save()
{
    ConfigurableSaver& saver = m_sources.saver;
    SettingsStore& store = saver.settings().store();
    store.setPlist(settingsToSave());
    m_default.clear();
    const auto areMarksWritten = m_marks.save();
    saver.playlist().dropFileList();
    alertOfSlideSaver();
    const bool isWritten = store.writePlist();

    saver.applyLoopMode();
    saver.settings().resetContinue();
    saver.resetMovie();
    alertOfFile(isWritten, store);
    if (!areMarksWritten) alertOfLoss(saver.playlist().entryMarks()->path());
}

// Options of older releases, which the controls do not show, end here.
QVariantMap ConfigModel::settingsToSave() const
{
    QVariantList files;
    for (const PlaylistEntry& entry : m_playList.entries())
        files.append(entry.text);

    QVariantMap plist{storedOption(option::fileList, files),
                      storedOption(option::soundOn, m_controls.soundChk),
                      storedOption(option::partialMode, m_controls.partialModeRadio),
                      storedOption(option::randomMode, m_controls.randomChk),
                      storedOption(option::resume, m_controls.continueChk),
                      storedOption(option::fullScreenMode, m_controls.fullScreenChk),
                      storedOption(option::playMode, m_controls.playModeRadio),
                      storedOption(option::fadeout, m_controls.fadeoutChk),
                      storedOption(option::backAndForth, m_controls.backAndForthChk),
                      storedOption(option::interval, floatValue(m_controls.timeIntervalField)),
                      storedOption(option::reposition, m_controls.reposRadio),
                      storedOption(option::scale, m_controls.scaleSlider),
                      storedOption(option::ver, settingsVersion)};
    const QString backSaver = chosenBackSaver();
    if (!backSaver.isEmpty()) plist.insert(QVariantMap{storedOption(option::backSaver, backSaver)});
    return plist;
}

QString ConfigModel::chosenBackSaver() const
{
    return m_backSaverList.value(m_controls.backSaverPopup - 1);
}

void ConfigModel::alertOfSlideSaver()
{
    if (extensionOf(chosenBackSaver()) != slideShowExtension) return;
    m_sources.panels.runAlert(QCoreApplication::translate(
        "Kestro",
        "You selected '.slideSaver'. \nYou may need to restart 'System Preferences.app' to take effect "
        "properly."));
}

/// Last of all: the new options count already, in the file or without it.
void ConfigModel::alertOfFile(bool isWritten, const SettingsStore& store)
{
    if (!isWritten)
        alertOfLoss(store.plistPath());
    else if (!store.keptPlist().isEmpty() && !std::exchange(m_toldOfKeptFile, true))
        m_sources.panels.runAlert(
            QCoreApplication::translate("Kestro", "The settings file could not be read. It was kept as %1.")
                .arg(store.keptPlist()));
}

void ConfigModel::alertOfLoss(const QString& path)
{
    m_sources.panels.runAlert(QCoreApplication::translate(
                                  "Kestro", "The settings could not be saved in %1. They are lost when this "
                                            "window closes.")
                                  .arg(path));
}

void ConfigModel::alertOfURL()
{
    m_sources.panels.runAlert(QCoreApplication::translate("Kestro", "Invalid URL string."));
}

void ConfigModel::selectMovie()
{
    const auto choice = m_sources.panels.runOpenPanel(m_sources.defaults.value(lastFolderKey).toString());
    if (!choice) return;
    addMovieFiles(choice->files);
    m_sources.defaults.setValue(lastFolderKey, choice->folder);
}

void ConfigModel::selectFolder()
{
    const auto folder = m_sources.panels.runFolderPanel(m_sources.defaults.value(lastFolderKey).toString());
    if (!folder) return;
    append({entryOfURL(urlOf({*folder, true}))});
    m_sources.defaults.setValue(lastFolderKey, *folder);
}

void ConfigModel::addMovieFiles(const QStringList& files)
{
    QList<PlaylistEntry> accepted;
    for (const QString& file : files)
        if (const auto entry = entryOfFile(file); isValidURL(entry.url)) accepted.append(entry);
    if (files.size() == 1 && accepted.isEmpty()) alertOfURL();
    append(accepted);
}

void ConfigModel::deleteMovie(const QList<int>& rows)
{
    m_playList.remove(rows);
    checkBackAndForthCondition();
}

bool ConfigModel::closeURLPanel(int tag, const QString& urlField)
{
    if (tag == 0) return true;
    const auto entry = entryOfText(urlField);
    if (!entry || !isValidURL(entry->url)) {
        alertOfURL();
        return false;
    }
    append({*entry});
    return true;
}

void ConfigModel::openTrailerPanel()
{
    if (m_sources.trailers == nullptr) return;
    m_isBrowsing = true;
    m_sources.trailers->showPanel(*this);
}

void ConfigModel::addURLList(const QList<QUrl>& urls)
{
    QList<PlaylistEntry> entries;
    for (const QUrl& url : urls)
        entries.append(entryOfURL(url));
    append(entries);
}

void ConfigModel::append(const QList<PlaylistEntry>& entries)
{
    m_playList.append(entries);
    checkBackAndForthCondition();
}

bool ConfigModel::editEntry(int row, const QString& text)
{
    if (row < 0 || row >= m_playList.entries().size()) return false;
    const EntryMark mark = m_marks.of(m_playList.entries()[row]);
    const bool isReplaced = m_playList.replace(row, text);
    if (isReplaced) m_marks.carry(mark, row);
    return isReplaced;
}

void ConfigModel::askForHours(const QList<int>& rows)
{
    if (rows.isEmpty()) return;
    const PlayTime before = m_marks.of(m_playList.entries()[rows.first()]).time;
    const auto hours = m_sources.panels.runHoursPanel(before);
    if (hours) m_marks.mark(rows, [&hours](EntryMark& mark) { mark.time = *hours; });
}

} // namespace kestro
