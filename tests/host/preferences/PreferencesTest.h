#pragma once

#include "support/WaitUntil.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kestro {

/// A folder, and programs in it.
class PreferencesTest : public testing::Test {
protected:
    /// A program of this text, for the shell.
    [[nodiscard]] QString program(const QByteArray& text) const;

    QTemporaryDir folder;
};

} // namespace kestro
