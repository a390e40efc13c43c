#include "settings/Options.h"

#include "platform/base/StoredValue.h"
#include "settings/SettingsStore.h"

namespace kestro {

namespace {

int valueOf(const QVariant& found, int)
{
    return intValue(found);
}

bool valueOf(const QVariant& found, bool)
{
    return intValue(found) != 0;
}

float valueOf(const QVariant& found, float)
{
    return floatValue(found);
}

template <typename Value>
Value numberFrom(const StoredOption<Value>& option, SettingsStore& store)
{
    if (const auto found = store.option(option.key)) return valueOf(*found, Value());
    return option.ofOlderRelease ? option.ofOlderRelease(store) : option.whenAbsent;
}

bool isList(const QVariant& found)
{
    return found.typeId() == QMetaType::QVariantList || found.typeId() == QMetaType::QStringList;
}

} // namespace

bool readOption(const StoredOption<bool>& option, SettingsStore& store)
{
    return numberFrom(option, store);
}

int readOption(const StoredOption<int>& option, SettingsStore& store)
{
    return numberFrom(option, store);
}

float readOption(const StoredOption<float>& option, SettingsStore& store)
{
    return numberFrom(option, store);
}

std::optional<QString> readOption(const StoredText& option, SettingsStore& store)
{
    const auto found = store.option(option.key);
    if (!found || found->typeId() != QMetaType::QString) return {};
    return found->toString();
}

std::optional<QVariantList> readOption(const StoredList& option, SettingsStore& store)
{
    const auto found = store.option(option.key);
    if (!found) return {};
    return isList(*found) ? found->toList() : QVariantList();
}

std::pair<QString, QVariant> storedOption(const StoredOption<bool>& option, bool value)
{
    return {option.key, storedInt(value ? 1 : 0)};
}

std::pair<QString, QVariant> storedOption(const StoredOption<int>& option, int value)
{
    return {option.key, storedInt(value)};
}

std::pair<QString, QVariant> storedOption(const StoredOption<float>& option, float value)
{
    return {option.key, storedFloat(static_cast<double>(value))};
}

std::pair<QString, QVariant> storedOption(const StoredText& option, const QString& value)
{
    return {option.key, value};
}

std::pair<QString, QVariant> storedOption(const StoredList& option, const QVariantList& value)
{
    return {option.key, value};
}

namespace option {

// A file of an older release that has only one of its two keys counts as full screen, whatever that key
// holds.
bool olderFullScreen(SettingsStore& store)
{
    if (!store.option(flyMode.key) || !store.option(bounce.key)) return true;
    return !readOption(flyMode, store) && !readOption(bounce, store);
}

int olderPartialMode(SettingsStore& store)
{
    return !readOption(flyMode, store) && readOption(bounce, store) ? PartialModeBounce : PartialModeFly;
}

int olderPlayMode(SettingsStore& store)
{
    return readOption(fullScreen, store);
}

} // namespace option

} // namespace kestro
