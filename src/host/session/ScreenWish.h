#pragma once

#include "host/start/Arguments.h"
#include "platform/base/ScreenChoice.h"

#include <optional>

namespace kestro {

/// What a command line says about the monitors of one run. A plain value.
struct ScreenWish {
    std::optional<ScreensMode> mode;
    std::optional<MonitorChoice> monitors;

    [[nodiscard]] bool isNone() const { return !mode && !monitors; }
    /// The choice for the run, where `configured` counts without a word.
    [[nodiscard]] ScreenChoice over(const ScreenChoice& configured) const;

    /// The options that it is read from.
    [[nodiscard]] static QList<Option> options();
    /// The error says what is wrong with which option.
    [[nodiscard]] static Result<ScreenWish> from(const Arguments& arguments);
};

} // namespace kestro
