#include "config_ui/DecimalValidator.h"

namespace kestro {

DecimalValidator::DecimalValidator(QObject* parent)
    : QDoubleValidator(parent)
{
    setLocale(QLocale::c());
    setNotation(StandardNotation);
}

QValidator::State DecimalValidator::validate(QString& input, int& position) const
{
    input.replace(u',', u'.');
    return QDoubleValidator::validate(input, position);
}

} // namespace kestro
