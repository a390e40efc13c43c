#include "config_ui/ControlGroup.h"

#include <QAccessibleWidget>

namespace kestro {

namespace {

QAccessibleInterface* asGroup(const QString&, QObject* object)
{
    auto* const group = qobject_cast<ControlGroup*>(object);
    return group != nullptr ? new QAccessibleWidget(group, QAccessible::Grouping) : nullptr;
}

} // namespace

ControlGroup::ControlGroup(QWidget* parent)
    : QWidget(parent)
{
    QAccessible::installFactory(&asGroup); // once, however many groups there are
}

} // namespace kestro
