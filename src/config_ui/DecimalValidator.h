#pragma once

#include <QDoubleValidator>

#include <functional>

namespace kestro {

/// A decimal number as a field shows it, with the decimal sign of the person's language, of its stored text,
/// which has a point; and the other way round. Any other text stays as it is.
[[nodiscard]] QString shownDecimal(QString stored);
[[nodiscard]] QString storedDecimal(QString shown);

/// Lets a decimal number be typed with a point or a comma: both become the decimal sign of the person's
/// language. Owned by its field. Main thread. Tested by ConfigSheetNumbersTest.
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
