#include "engine/SlideRedirection.h"

#include "platform/base/Log.h"
#include "platform/base/ProcessMark.h"
#include "platform/plist/PropertyList.h"

#include <QDir>
#include <QLockFile>

#include <utility>

namespace kestro {

namespace {

const QString folderKey = QStringLiteral("SlideFolder");
/// Our note in the preference file: the folder before, the one that took its place, and the processes that
/// show that one.
const QString noteKey = QStringLiteral("KestroSlideFolder");
const QString beforeKey = QStringLiteral("Before");
const QString insteadKey = QStringLiteral("Instead");
const QString writersKey = QStringLiteral("Writers");

constexpr int longestWaitForFile = 100; ///< milliseconds

/// One about another folder than the present one is out of date, and counts as none.
QVariantMap noteIn(const QVariantMap& preferences)
{
    const QVariantMap note = preferences.value(noteKey).toMap();
    const QVariant instead = note.value(insteadKey);
    return instead.isValid() && instead == preferences.value(folderKey) ? note : QVariantMap();
}

/// The processes of the note that still run, but for the one with the mark `self`.
QStringList othersIn(const QVariantMap& note, const QString& self)
{
    QStringList others;
    for (const QString& mark : note.value(writersKey).toStringList())
        if (mark != self && isRunning(mark)) others.append(mark);
    return others;
}

/// Its parts between dots where `name` is that of a screen saver's preference file, else empty.
QStringList partsOfSaverPreferences(const QString& name)
{
    const QStringList parts = name.split(u'.');
    const QStringList wanted{QStringLiteral("com"), QStringLiteral("apple"), QStringLiteral("screensaver")};
    return parts.size() > 4 && parts.mid(0, wanted.size()) == wanted ? parts : QStringList();
}

} // namespace

SlideRedirection::SlideRedirection(QString home, QString mark)
    : m_home(std::move(home))
    , m_mark(std::move(mark))
{
}

QString SlideRedirection::byHostFolder() const
{
    return m_home + QStringLiteral("/Library/Preferences/ByHost");
}

void SlideRedirection::findPreferences()
{
    const QDir folder(byHostFolder());
    for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name)) {
        const QStringList parts = partsOfSaverPreferences(name);
        if (parts.isEmpty()) continue;
        if (parts[3] == u"slideshow") {
            m_slideSaverDictPath = folder.filePath(name);
            return;
        }
        m_hostIdentifier = parts[3];
    }
}

bool SlideRedirection::redirect(const QString& folder)
{
    const std::lock_guard lock(m_defdictLock);
    if (m_slideSaverDictPathBackup) return true;
    if (!m_slideSaverDictPath) findPreferences();
    if (!m_slideSaverDictPath && !m_hostIdentifier) return false;
    if (!point(folder)) logLine(QStringLiteral("SlideFolder changing failed."));
    return true;
}

/// In a file that is made here the folder is pointed at for good: it is what is put back, too.
bool SlideRedirection::point(const QString& folder)
{
    const auto held = holdFile();
    QVariantMap preferences;
    QVariantMap note;
    QVariant before = folder;
    if (m_slideSaverDictPath) {
        const auto stored = readPropertyListDictionary(*m_slideSaverDictPath);
        if (!stored) return false;
        preferences = *stored;
        note = noteIn(preferences);
        before = note.isEmpty() ? preferences.value(folderKey) : note.value(beforeKey);
    } else {
        m_slideSaverDictPath =
            byHostFolder() +
            QStringLiteral("/com.apple.screensaver.slideshow.%1.plist").arg(*m_hostIdentifier);
    }
    if (before.isValid()) m_slideSaverDictPathBackup = before;
    preferences.remove(noteKey);
    if (before.isValid() && before != folder)
        preferences[noteKey] = QVariantMap{
            {beforeKey, before}, {insteadKey, folder}, {writersKey, othersIn(note, m_mark) << m_mark}};
    preferences[folderKey] = folder;
    return writePropertyList(*m_slideSaverDictPath, preferences);
}

void SlideRedirection::restore()
{
    const std::lock_guard lock(m_defdictLock);
    const auto before = std::exchange(m_slideSaverDictPathBackup, std::nullopt);
    if (!before || !m_slideSaverDictPath) return;
    const auto held = holdFile();
    auto preferences = readPropertyListDictionary(*m_slideSaverDictPath);
    if (preferences) putBack(*preferences, *before);
    if (!preferences || !writePropertyList(*m_slideSaverDictPath, *preferences))
        logLine(QStringLiteral("Dictionary writing failed..."));
}

/// While other processes show the folder it stays, and the last of them puts it back.
void SlideRedirection::putBack(QVariantMap& preferences, const QVariant& before) const
{
    QVariantMap note = noteIn(preferences);
    const QStringList others = othersIn(note, m_mark);
    preferences.remove(noteKey);
    if (others.isEmpty()) {
        preferences.insert(folderKey, before);
        return;
    }
    note.insert(writersKey, others);
    preferences.insert(noteKey, note);
}

void SlideRedirection::makeGood()
{
    const std::lock_guard lock(m_defdictLock);
    if (m_slideSaverDictPathBackup) return;
    if (!m_slideSaverDictPath) findPreferences();
    if (!m_slideSaverDictPath) return;
    const auto held = holdFile();
    auto preferences = readPropertyListDictionary(*m_slideSaverDictPath);
    const QVariantMap note = preferences ? noteIn(*preferences) : QVariantMap();
    if (note.isEmpty() || !othersIn(note, m_mark).isEmpty()) return;
    putBack(*preferences, note.value(beforeKey));
    if (!writePropertyList(*m_slideSaverDictPath, *preferences))
        logLine(QStringLiteral("Dictionary writing failed..."));
}

/// One process at a time: several start and stop at once, one for each monitor. Where that cannot be had soon
/// it goes without.
std::unique_ptr<QLockFile> SlideRedirection::holdFile() const
{
    auto held = std::make_unique<QLockFile>(byHostFolder() + QStringLiteral("/.kestro-slideshow.lock"));
    [[maybe_unused]] const bool isHeld = held->tryLock(longestWaitForFile);
    return held;
}

} // namespace kestro
