#pragma once

#include <QString>

#include <functional>
#include <optional>

class QWidget;

namespace kestro {

struct MoreOption;

/// What a person chooses an option with. Tested by MoreWindowTest.
struct OptionControl {
    QWidget* widget = nullptr; ///< its parent owns it
    /// Shows what is stored; nothing where nothing is. `chosen` is not called for that.
    std::function<void(const std::optional<QString>& stored)> show;
};

/// `chosen` is called with what is to be stored, as often as a person chooses.
[[nodiscard]] OptionControl makeControl(const MoreOption& option,
                                        const std::function<void(const QString&)>& chosen, QWidget& parent);

} // namespace kestro
