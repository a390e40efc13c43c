#include "config_ui/DecimalValidator.h"

#include <utility>

namespace kestro {

QString shownDecimal(QString stored)
{
    return stored.replace(u'.', QLocale().decimalPoint());
}

QString storedDecimal(QString shown)
{
    return shown.replace(QLocale().decimalPoint(), QStringLiteral("."));
}

DecimalValidator::DecimalValidator(QObject* parent, Fallback fallback)
    : QDoubleValidator(parent)
    , m_fallback(std::move(fallback))
{
    setLocale(QLocale::c());
    setNotation(StandardNotation);
}

QValidator::State DecimalValidator::validate(QString& input, int& position) const
{
    const QString sign = QLocale().decimalPoint();
    input.replace(u',', sign).replace(u'.', sign);
    QString stored = storedDecimal(input);
    return QDoubleValidator::validate(stored, position);
}

void DecimalValidator::fixup(QString& input) const
{
    if (m_fallback) input = m_fallback();
}

} // namespace kestro
