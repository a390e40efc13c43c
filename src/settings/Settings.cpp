#include "settings/Settings.h"

#include "platform/base/StoredValue.h"
#include "settings/SettingsStore.h"

namespace kestro {

namespace {

constexpr int flyPartialMode = 0;
constexpr int bouncePartialMode = 1;
constexpr int repositionWhenMovieEnds = 1;

constexpr int noLoop = 0;
constexpr int plainLoop = 1;
constexpr int backAndForthLoop = 2;

bool isPresent(SettingsStore& store, const QString& key)
{
    return store.option(key).has_value();
}

int integer(SettingsStore& store, const QString& key)
{
    return intValue(store.option(key).value_or(QVariant()));
}

bool flag(SettingsStore& store, const QString& key)
{
    return integer(store, key) != 0;
}

float real(SettingsStore& store, const QString& key, float whenAbsent)
{
    const auto stored = store.option(key);
    return stored ? floatValue(*stored) : whenAbsent;
}

const QString partialModeKey = QStringLiteral("PartialMode");
const QString flyModeKey = QStringLiteral("FlyMode");
const QString bounceKey = QStringLiteral("Bounce");

} // namespace

Settings::Settings(SettingsStore& store, ViewKind view)
    : m_store(store)
    , m_view(view)
{
}

int Settings::plistVersion() const
{
    return integer(m_store, QStringLiteral("Ver"));
}

bool Settings::isSoundOn() const
{
    return flag(m_store, QStringLiteral("SoundOn"));
}

bool Settings::_isFlyMode() const
{
    return flag(m_store, flyModeKey);
}

bool Settings::_isBounceMode() const
{
    return flag(m_store, bounceKey);
}

// A file of an older release that has only one of its two keys counts as full screen, whatever that key
// holds.
bool Settings::isFullScreen() const
{
    const QString key = QStringLiteral("FullScreenMode");
    if (isPresent(m_store, key)) return flag(m_store, key);
    if (!isPresent(m_store, flyModeKey) || !isPresent(m_store, bounceKey)) return true;
    return !_isFlyMode() && !_isBounceMode();
}

bool Settings::isDynamicMode() const
{
    return !isFullScreen();
}

int Settings::partialMode() const
{
    if (isPresent(m_store, partialModeKey)) return integer(m_store, partialModeKey);
    return !_isFlyMode() && _isBounceMode() ? bouncePartialMode : flyPartialMode;
}

bool Settings::isFlyMode() const
{
    if (!isDynamicMode()) return false;
    return isPresent(m_store, partialModeKey) ? partialMode() == flyPartialMode : _isFlyMode();
}

bool Settings::isBounceMode() const
{
    if (!isDynamicMode()) return false;
    return isPresent(m_store, partialModeKey) ? partialMode() == bouncePartialMode : _isBounceMode();
}

bool Settings::isRandomMode() const
{
    return flag(m_store, QStringLiteral("RandomMode"));
}

bool Settings::isContinue() const
{
    return flag(m_store, QStringLiteral("Continue"));
}

bool Settings::canContinue() const
{
    return !m_view.isPreview && isContinue();
}

void Settings::resetContinue()
{
    m_store.removeDefaultsForKey(QStringLiteral("LastPos"));
}

int Settings::playMode() const
{
    const QString key = QStringLiteral("PlayMode");
    return integer(m_store, isPresent(m_store, key) ? key : QStringLiteral("FullScreen"));
}

bool Settings::fadeoutEffect() const
{
    return flag(m_store, QStringLiteral("Fadeout"));
}

bool Settings::backAndForth() const
{
    return flag(m_store, QStringLiteral("BackAndForth"));
}

float Settings::scaleFactor() const
{
    return real(m_store, QStringLiteral("Scale"), 1.0F);
}

float Settings::timeInterval() const
{
    return real(m_store, QStringLiteral("Interval"), 4.0F);
}

int Settings::reposition() const
{
    return integer(m_store, QStringLiteral("Reposition"));
}

bool Settings::repostionWhenMovieEnds() const
{
    return isDynamicMode() && !m_view.windowMode && reposition() == repositionWhenMovieEnds;
}

std::optional<QString> Settings::backSaver() const
{
    const QVariant stored = m_store.option(QStringLiteral("BackSaver")).value_or(QVariant());
    if (stored.typeId() != QMetaType::QString) return {};
    return stored.toString();
}

std::optional<int> Settings::loopMode(qsizetype entryCount) const
{
    if (entryCount != 1) return noLoop;
    if (backAndForth()) return backAndForthLoop;
    if (repostionWhenMovieEnds()) return {};
    return plainLoop;
}

} // namespace kestro
