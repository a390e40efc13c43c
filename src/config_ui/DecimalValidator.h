#pragma once

#include <QDoubleValidator>

namespace kestro {

/// Lets a decimal number be typed as it is stored, with a point; a comma becomes one. Owned by its field.
/// Main thread. Tested by ConfigSheetControlsTest.
class DecimalValidator final : public QDoubleValidator {
    Q_OBJECT

public:
    explicit DecimalValidator(QObject* parent);

    [[nodiscard]] State validate(QString& input, int& position) const override;
};

} // namespace kestro
