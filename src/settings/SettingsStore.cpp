#include "settings/SettingsStore.h"

#include "platform/base/Log.h"
#include "platform/base/StoredValue.h"
#include "platform/plist/PropertyList.h"
#include "platform/plist/PropertyListFile.h"
#include "settings/Options.h"

#include <utility>

namespace kestro {

namespace {

bool isUnreadable(const QString& path)
{
    return isPropertyListFileThere(path) && !readPropertyListDictionary(path);
}

/// Whether what is written next overwrites nothing that nobody could read, now or when it was read. Answers
/// where that is now.
std::optional<QString> makeRoom(const QString& path, bool wasUnreadable)
{
    const bool isInTheWay = wasUnreadable ? isPropertyListFileThere(path) : isUnreadable(path);
    if (!isInTheWay) return QString();
    const auto copy = setAsidePropertyListFile(path);
    if (copy) logLine(QStringLiteral("Cannot read %1: kept as %2.").arg(path, *copy));
    return copy;
}

} // namespace

// What one of the two files held.
QVariantMap& SettingsStore::loadedOnce(Stored& stored, const QString& path)
{
    if (stored.values) return *stored.values;
    auto found = readPropertyListDictionary(path);
    stored.wasUnreadable = !found && isPropertyListFileThere(path);
    stored.values = std::move(found).value_or(QVariantMap());
    return *stored.values;
}

bool SettingsStore::write(Stored& stored, const QString& path)
{
    const auto copy = makeRoom(path, stored.wasUnreadable);
    if (copy) stored.wasUnreadable = false;
    if (copy && !copy->isEmpty()) stored.keptAs = *copy;
    const bool isWritten = copy && writePropertyList(path, loadedOnce(stored, path));
    if (!isWritten) logLine(QStringLiteral("Cannot save %1.").arg(path));
    return isWritten;
}

SettingsStore::SettingsStore(QString homeFolder)
    : m_homeFolder(std::move(homeFolder))
{
}

QVariantMap& SettingsStore::options()
{
    return loadedOnce(m_plist, plistPath());
}

QVariantMap& SettingsStore::defaults()
{
    return loadedOnce(m_defaults, defaultsPlistPath());
}

const QVariantMap& SettingsStore::plist()
{
    return options();
}

void SettingsStore::setPlist(QVariantMap options)
{
    this->options() = std::move(options);
}

void SettingsStore::removeOption(const QString& key)
{
    options().remove(key);
}

bool SettingsStore::writePlist()
{
    return write(m_plist, plistPath());
}

const QVariantMap& SettingsStore::defaultsPlist()
{
    return defaults();
}

std::optional<QVariant> SettingsStore::option(const QString& key)
{
    for (const QVariantMap* options : {&std::as_const(m_optionsForThisRun), &plist()})
        if (const auto found = options->find(key); found != options->end()) return *found;
    return {};
}

bool SettingsStore::leavesNothing() const
{
    return intValue(m_optionsForThisRun.value(option::leavesNothing.key)) != 0;
}

bool SettingsStore::setDefaultsForKey(const QVariant& value, const QString& key)
{
    return setDefaults({{key, value}});
}

bool SettingsStore::setDefaults(const QVariantMap& values)
{
    defaults().insert(values);
    return writeDefaults();
}

std::optional<QVariant> SettingsStore::defaultsForKey(const QString& key)
{
    const auto found = defaultsPlist().find(key);
    if (found == defaultsPlist().end()) return {};
    return *found;
}

bool SettingsStore::removeDefaultsForKey(const QString& key)
{
    defaults().remove(key);
    return writeDefaults();
}

bool SettingsStore::writeDefaults()
{
    if (leavesNothing()) return false;
    return write(m_defaults, defaultsPlistPath());
}

QString SettingsStore::plistPath() const
{
    return m_homeFolder + QStringLiteral("/Library/Preferences/Kestro.plist");
}

QString SettingsStore::defaultsPlistPath() const
{
    return m_homeFolder + QStringLiteral("/Library/Preferences/Kestro.def.plist");
}

} // namespace kestro
