#include "host/session/ScreenWish.h"

namespace kestro {

namespace {

const QString monitorsOption = QStringLiteral("monitors");

} // namespace

ScreenChoice ScreenWish::over(const ScreenChoice& configured) const
{
    return {mode.value_or(configured.mode), monitors.value_or(configured.monitors)};
}

QList<Option> ScreenWish::options()
{
    return {
        {textOf(ScreensMode::Each), {}, QStringLiteral("another movie on every monitor")},
        {textOf(ScreensMode::Mirror), {}, QStringLiteral("the same movie on every monitor")},
        {textOf(ScreensMode::Span), {}, QStringLiteral("one movie across all monitors as they stand")},
        {monitorsOption,
         QStringLiteral("LIST"),
         QStringLiteral("all, first, or names with commas between them; the others are black"),
         false,
         {QStringLiteral("all"), QStringLiteral("first")}},
    };
}

Result<ScreenWish> ScreenWish::from(const Arguments& arguments)
{
    ScreenWish wish;
    for (const ScreensMode mode : screensModes) {
        if (!arguments.has(textOf(mode))) continue;
        if (wish.mode) return Error{QStringLiteral("--each, --mirror and --span exclude each other")};
        wish.mode = mode;
    }
    const auto list = arguments.text(monitorsOption);
    if (!list) return wish;
    const auto monitors = MonitorChoice::from(*list);
    if (!monitors) return Error{QStringLiteral("--monitors: ") + monitors.error()};
    wish.monitors = monitors.value();
    return wish;
}

} // namespace kestro
