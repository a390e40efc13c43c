#pragma once

#include "settings/Settings.h"
#include "settings/SettingsStore.h"

#include <QTemporaryDir>
#include <QVariantMap>

namespace kestro {

/// Settings whose main file holds what a test says; nothing is read from disk, and what is written goes to a
/// folder of its own. For tests.
class SettingsInMemory final {
public:
    explicit SettingsInMemory(const QVariantMap& plist = {}, Settings::ViewKind view = {})
        : m_store(m_home.path())
        , m_settings(m_store, view)
    {
        m_store.setPlist(plist);
    }

    [[nodiscard]] Settings& settings() { return m_settings; }
    Settings* operator->() { return &m_settings; }

private:
    QTemporaryDir m_home;
    SettingsStore m_store;
    Settings m_settings;
};

} // namespace kestro
