#pragma once

#include <QTemporaryDir>

#include <functional>
#include <gtest/gtest.h>

namespace kestro {

/// Lets events through, children's ends included, until `isSo`; answers whether it came to be.
[[nodiscard]] bool comesTrue(const std::function<bool()>& isSo);

/// A folder, and programs in it.
class PreferencesTest : public testing::Test {
protected:
    /// A program of this text, for the shell.
    [[nodiscard]] QString program(const QByteArray& text) const;

    QTemporaryDir folder;
};

} // namespace kestro
