#include "host/preferences/OptionControl.h"

#include "host/preferences/MoreOptions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSignalBlocker>

namespace kestro {

namespace {

constexpr int decimals = 2; // of degrees: a kilometre, some seconds of the sun
constexpr double step = 1;

using Chosen = std::function<void(const QString&)>;

OptionControl makeSwitch(const MoreOption& option, const Chosen& chosen, QWidget& parent)
{
    auto* box = new QCheckBox(option.title, &parent);
    const QString off = option.values.front().stored;
    const QString on = option.values.back().stored;
    QObject::connect(box, &QCheckBox::toggled, [chosen, off, on](bool isOn) { chosen(isOn ? on : off); });
    return {box, [box, on](const std::optional<QString>& stored) {
                const QSignalBlocker quiet(box);
                box->setChecked(stored == on);
            }};
}

OptionControl makeChoice(const MoreOption& option, const Chosen& chosen, QWidget& parent)
{
    auto* box = new QComboBox(&parent);
    for (const auto& value : option.values)
        box->addItem(value.words, value.stored);
    QObject::connect(box, &QComboBox::currentIndexChanged,
                     [box, chosen] { chosen(box->currentData().toString()); });
    return {box, [box, offered = box->count()](const std::optional<QString>& stored) {
                const QSignalBlocker quiet(box);
                box->setMaxCount(offered); // without what was stored before
                box->setMaxCount(offered + 1);
                if (stored && box->findData(*stored) < 0) box->addItem(*stored, *stored);
                box->setCurrentIndex(stored ? box->findData(*stored) : 0);
            }};
}

OptionControl makeDegrees(const MoreOption& option, const Chosen& chosen, QWidget& parent)
{
    auto* box = new QDoubleSpinBox(&parent);
    const double unknown = -option.most - step; // the least of all, which is shown as words
    box->setRange(unknown, option.most);
    box->setDecimals(decimals);
    box->setSpecialValueText(MoreOptions::tr("not known", "degrees of latitude or longitude"));
    box->setSuffix(QStringLiteral("°"));
    box->setKeyboardTracking(false);
    QObject::connect(box, &QDoubleSpinBox::valueChanged, [chosen, most = option.most](double degrees) {
        chosen(degrees < -most ? QString() : QString::number(degrees, 'f', decimals));
    });
    return {box, [box, unknown, most = option.most](const std::optional<QString>& stored) {
                const QSignalBlocker quiet(box);
                bool isNumber = false;
                const double degrees = stored ? stored->toDouble(&isNumber) : 0;
                box->setValue(isNumber && std::abs(degrees) <= most ? degrees : unknown);
            }};
}

} // namespace

OptionControl makeControl(const MoreOption& option, const Chosen& chosen, QWidget& parent)
{
    switch (option.kind) {
    case MoreOption::Kind::Switch:
        return makeSwitch(option, chosen, parent);
    case MoreOption::Kind::Choice:
        return makeChoice(option, chosen, parent);
    case MoreOption::Kind::Degrees:
        return makeDegrees(option, chosen, parent);
    }
    return {};
}

} // namespace kestro
