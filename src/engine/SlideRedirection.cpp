#include "engine/SlideRedirection.h"

#include "platform/base/Log.h"
#include "platform/plist/PropertyList.h"

#include <QDir>

namespace kestro {

namespace {

const QString folderKey = QStringLiteral("SlideFolder");
/// Our note in the preference file: the folder before, and the one that took its place.
const QString noteKey = QStringLiteral("KestroSlideFolder");
const QString beforeKey = QStringLiteral("Before");
const QString insteadKey = QStringLiteral("Instead");

/// What a run that did not come to its end has left to be put back; invalid when nothing is. A note about
/// another folder than the present one is out of date.
QVariant leftToPutBack(const QVariantMap& preferences)
{
    const QVariantMap note = preferences.value(noteKey).toMap();
    const QVariant instead = note.value(insteadKey);
    return instead.isValid() && instead == preferences.value(folderKey) ? note.value(beforeKey) : QVariant();
}

/// Its parts between dots where `name` is that of a screen saver's preference file, else empty.
QStringList partsOfSaverPreferences(const QString& name)
{
    const QStringList parts = name.split(u'.');
    const QStringList wanted{QStringLiteral("com"), QStringLiteral("apple"), QStringLiteral("screensaver")};
    return parts.size() > 4 && parts.mid(0, wanted.size()) == wanted ? parts : QStringList();
}

} // namespace

SlideRedirection::SlideRedirection(QString home)
    : m_home(std::move(home))
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
    QVariantMap preferences;
    QVariant before = folder;
    if (m_slideSaverDictPath) {
        const auto stored = readPropertyListDictionary(*m_slideSaverDictPath);
        if (!stored) return false;
        preferences = *stored;
        const QVariant left = leftToPutBack(preferences);
        before = left.isValid() ? left : preferences.value(folderKey);
    } else {
        m_slideSaverDictPath =
            byHostFolder() +
            QStringLiteral("/com.apple.screensaver.slideshow.%1.plist").arg(*m_hostIdentifier);
    }
    if (before.isValid()) m_slideSaverDictPathBackup = before;
    preferences.remove(noteKey);
    if (before.isValid() && before != folder)
        preferences[noteKey] = QVariantMap{{beforeKey, before}, {insteadKey, folder}};
    preferences[folderKey] = folder;
    return writePropertyList(*m_slideSaverDictPath, preferences);
}

void SlideRedirection::restore()
{
    const std::lock_guard lock(m_defdictLock);
    const std::optional<QVariant> backup = m_slideSaverDictPathBackup;
    m_slideSaverDictPathBackup.reset();
    if (!m_slideSaverDictPath) findPreferences();
    if (!m_slideSaverDictPath) return;
    auto preferences = readPropertyListDictionary(*m_slideSaverDictPath);
    const QVariant before = backup ? *backup : preferences ? leftToPutBack(*preferences) : QVariant();
    if (!before.isValid()) return;
    bool isWritten = false;
    if (preferences) {
        preferences->remove(noteKey);
        preferences->insert(folderKey, before);
        isWritten = writePropertyList(*m_slideSaverDictPath, *preferences);
    }
    if (!isWritten) logLine(QStringLiteral("Dictionary writing failed..."));
}

} // namespace kestro
