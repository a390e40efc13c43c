#include "platform/base/ScreenChoice.h"

namespace kestro {

namespace {

const QString all = QStringLiteral("all");
const QString first = QStringLiteral("first");
const QString comma = QStringLiteral(",");

} // namespace

QString textOf(ScreensMode mode)
{
    switch (mode) {
    case ScreensMode::Mirror:
        return QStringLiteral("mirror");
    case ScreensMode::Span:
        return QStringLiteral("span");
    case ScreensMode::Each:
        break;
    }
    return QStringLiteral("each");
}

Result<MonitorChoice> MonitorChoice::from(const QString& text)
{
    if (text == all) return MonitorChoice{};
    if (text == first) return MonitorChoice{Kind::First, {}};
    QStringList names;
    for (const QString& name : text.split(comma))
        names.append(name.trimmed());
    names.removeDuplicates();
    const bool isList = !names.contains(QString()) && !names.contains(all) && !names.contains(first);
    if (isList) return MonitorChoice{Kind::Named, names};
    return Error{QStringLiteral("\"%1\" is neither all, first nor names with commas between them").arg(text)};
}

QString MonitorChoice::text() const
{
    switch (kind) {
    case Kind::All:
        return all;
    case Kind::First:
        return first;
    case Kind::Named:
        return names.join(comma);
    }
    return all;
}

} // namespace kestro
