#pragma once

#include <QDoubleValidator>

#include <functional>

namespace kestro {

/// Lets a decimal number be typed as it is stored, with a point; a comma becomes one. Owned by its field.
/// Main thread. Tested by ConfigSheetControlsTest.
class DecimalValidator final : public QDoubleValidator {
    Q_OBJECT

public:
    /// What a field goes back to that is left without a number; without it such a field stays as it is.
    using Fallback = std::function<QString()>;

    explicit DecimalValidator(QObject* parent, Fallback fallback = {});

    [[nodiscard]] State validate(QString& input, int& position) const override;
    void fixup(QString& input) const override;

private:
    Fallback m_fallback;
};

} // namespace kestro
