#include "host/render/RenderOptions.h"

#include <QRegularExpression>

#include <algorithm>

namespace kestro {

namespace {

constexpr int leastSide = 16;
constexpr int mostSide = 8192;
constexpr int mostScreens = 8;
constexpr double mostSeconds = 24 * 60 * 60;
constexpr double leastEvery = 0.01;
// Half a gibibyte of pixels: past it a slip of the finger would take the machine down.
constexpr qint64 mostPixels = qint64(128) * 1024 * 1024;

Result<QSize> sizeFrom(const Arguments& arguments, QSize fallback)
{
    const auto text = arguments.text(QStringLiteral("size"));
    if (!text) return fallback;
    static const QRegularExpression form(QStringLiteral("\\A([0-9]{1,5})x([0-9]{1,5})\\z"));
    const auto match = form.match(*text);
    const QSize size(match.captured(1).toInt(), match.captured(2).toInt());
    const auto [shorter, longer] = std::minmax({size.width(), size.height()});
    if (match.hasMatch() && shorter >= leastSide && longer <= mostSide) return size;
    return Error{QStringLiteral("--size needs WIDTHxHEIGHT, each from %1 to %2, not \"%3\"")
                     .arg(leastSide)
                     .arg(mostSide)
                     .arg(*text)};
}

} // namespace

Syntax RenderOptions::syntax()
{
    const auto text = [](const char* words) { return QString::fromLatin1(words); };
    Syntax syntax{text("render"), text("Run the saver without a display and write PNG pictures of it"), {}};
    syntax.options = {
        {text("out"), text("DIR"), text("folder for the pictures, made when missing"), true},
        {text("seconds"), text("S"), text("how long to run (10)")},
        {text("size"), text("WxH"), text("points of a screen (1920x1080)")},
        {text("screens"), text("N"), text("screens side by side (1)")},
        {text("every"), text("S"), text("seconds between two pictures (1)")},
        {text("trace"), text("FILE"), text("write a line of JSON for each tick of each screen")},
    };
    syntax.options += ScreenWish::options();
    return syntax;
}

Result<RenderOptions> RenderOptions::from(const Arguments& arguments)
{
    RenderOptions options;
    options.folder = arguments.text(QStringLiteral("out")).value_or(QString());
    if (options.folder.isEmpty()) return Error{QStringLiteral("--out needs a folder")};
    options.traceFile = arguments.text(QStringLiteral("trace")).value_or(QString());
    if (arguments.has(QStringLiteral("trace")) && options.traceFile.isEmpty())
        return Error{QStringLiteral("--trace needs a file")};

    const auto seconds = arguments.real(QStringLiteral("seconds"), options.seconds, leastEvery, mostSeconds);
    if (!seconds) return seconds.failure();
    const auto every = arguments.real(QStringLiteral("every"), options.every, leastEvery, mostSeconds);
    if (!every) return every.failure();
    const auto screens = arguments.integer(QStringLiteral("screens"), options.screens, 1, mostScreens);
    if (!screens) return screens.failure();
    const auto size = sizeFrom(arguments, options.size);
    if (!size) return size.failure();
    if (qint64(size.value().width()) * size.value().height() * screens.value() > mostPixels)
        return Error{QStringLiteral("--size and --screens together are more than %1 pixels").arg(mostPixels)};

    const auto wish = ScreenWish::from(arguments);
    if (!wish) return wish.failure();

    options.choice = wish.value().over({});
    options.seconds = seconds.value();
    options.every = every.value();
    options.screens = screens.value();
    options.size = size.value();
    return options;
}

} // namespace kestro
