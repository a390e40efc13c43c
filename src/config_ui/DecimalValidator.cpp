#include "config_ui/DecimalValidator.h"

#include <utility>

namespace kestro {

DecimalValidator::DecimalValidator(QObject* parent, Fallback fallback)
    : QDoubleValidator(parent)
    , m_fallback(std::move(fallback))
{
    setLocale(QLocale::c());
    setNotation(StandardNotation);
}

QValidator::State DecimalValidator::validate(QString& input, int& position) const
{
    input.replace(u',', u'.');
    return QDoubleValidator::validate(input, position);
}

void DecimalValidator::fixup(QString& input) const
{
    if (m_fallback) input = m_fallback();
}

} // namespace kestro
