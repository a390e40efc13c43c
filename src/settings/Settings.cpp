#include "settings/Settings.h"

#include "settings/SettingsStore.h"

namespace kestro {

namespace {

constexpr int noLoop = 0;
constexpr int plainLoop = 1;
constexpr int backAndForthLoop = 2;

} // namespace

Settings::Settings(SettingsStore& store, ViewKind view)
    : m_store(store)
    , m_view(view)
{
}

bool Settings::isDynamicMode() const
{
    return !isFullScreen();
}

// Without a mode that is stored, the key of older releases says so: they could do both, or neither.
bool Settings::isMovingBy(PartialMode mode, const StoredOption<bool>& older) const
{
    return m_store.option(option::partialMode.key) ? partialMode() == mode : value(older);
}

bool Settings::isFlyMode() const
{
    return isDynamicMode() && isMovingBy(PartialModeFly, option::flyMode);
}

bool Settings::isBounceMode() const
{
    return isDynamicMode() && isMovingBy(PartialModeBounce, option::bounce);
}

bool Settings::canContinue() const
{
    return !m_view.isPreview && isContinue();
}

void Settings::resetContinue()
{
    m_store.removeDefaultsForKey(resumeKey::lastPos);
}

bool Settings::repostionWhenMovieEnds() const
{
    return isDynamicMode() && !m_view.windowMode && reposition() == RepositionWhenMovieEnds;
}

void Settings::forgetBackSaver()
{
    m_store.removeOption(option::backSaver.key);
}

std::optional<int> Settings::loopMode(qsizetype entryCount) const
{
    if (entryCount != 1) return noLoop;
    if (backAndForth()) return backAndForthLoop;
    if (repostionWhenMovieEnds()) return {};
    return plainLoop;
}

} // namespace kestro
