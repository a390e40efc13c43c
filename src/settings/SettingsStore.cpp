#include "settings/SettingsStore.h"

#include "platform/base/StoredValue.h"
#include "platform/plist/PropertyList.h"

#include <utility>

namespace kestro {

namespace {

const QString leavesNothingKey = QStringLiteral("LeavesNothing");

QVariantMap& loadedOnce(std::optional<QVariantMap>& kept, const QString& path)
{
    if (!kept) kept = readPropertyListDictionary(path).value_or(QVariantMap());
    return *kept;
}

} // namespace

SettingsStore::SettingsStore(QString homeFolder)
    : m_homeFolder(std::move(homeFolder))
{
}

QVariantMap& SettingsStore::plist()
{
    return loadedOnce(m_plist, plistPath());
}

bool SettingsStore::writePlist()
{
    return writePropertyList(plistPath(), plist());
}

QVariantMap& SettingsStore::defaultsPlist()
{
    return loadedOnce(m_defaultsPlist, defaultsPlistPath());
}

std::optional<QVariant> SettingsStore::option(const QString& key)
{
    for (const QVariantMap* options : {&std::as_const(m_optionsForThisRun), &std::as_const(plist())})
        if (const auto found = options->find(key); found != options->end()) return *found;
    return {};
}

bool SettingsStore::leavesNothing() const
{
    return intValue(m_optionsForThisRun.value(leavesNothingKey)) != 0;
}

bool SettingsStore::setDefaultsForKey(const QVariant& value, const QString& key)
{
    return setDefaults({{key, value}});
}

bool SettingsStore::setDefaults(const QVariantMap& values)
{
    defaultsPlist().insert(values);
    return writeDefaults();
}

std::optional<QVariant> SettingsStore::defaultsForKey(const QString& key)
{
    const auto found = std::as_const(defaultsPlist()).find(key);
    if (found == std::as_const(defaultsPlist()).end()) return {};
    return *found;
}

bool SettingsStore::removeDefaultsForKey(const QString& key)
{
    defaultsPlist().remove(key);
    return writeDefaults();
}

bool SettingsStore::writeDefaults()
{
    return !leavesNothing() && writePropertyList(defaultsPlistPath(), defaultsPlist());
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
