#include "host/commands/RunOptions.h"

#include "idle/IdleOptions.h"
#include "settings/Options.h"

#include <array>

namespace kestro {

namespace {

const QString stopAfterOption = QStringLiteral("stop-after");
constexpr double leastScale = 0.01;
constexpr double mostScale = 100;

/// "0x2a00007" or "44040199", as window numbers are written everywhere.
Result<std::uint32_t> windowNumber(const QString& source, const QString& text)
{
    const bool isHex = text.startsWith(QStringLiteral("0x"), Qt::CaseInsensitive);
    bool isNumber = false;
    const std::uint32_t window = (isHex ? text.mid(2) : text).toUInt(&isNumber, isHex ? 16 : 10);
    if (isNumber) return window;
    return Error{QStringLiteral("%1 needs the number of a window, not \"%2\"").arg(source, text)};
}

QVariantMap partialSettings(PartialMode mode)
{
    return {storedOption(option::fullScreenMode, false), storedOption(option::partialMode, mode)};
}

/// What the mode of that name on the command line sets. Nothing for another name.
std::optional<QVariantMap> settingsOfMode(const QString& mode)
{
    if (mode == u"fullscreen") return QVariantMap{storedOption(option::fullScreenMode, true)};
    if (mode == u"fly") return partialSettings(PartialModeFly);
    if (mode == u"bounce") return partialSettings(PartialModeBounce);
    return {};
}

/// A word that switches a setting on, or off with "no-" before it.
struct Switch {
    const char* word;
    const StoredOption<bool>& option;
};

constexpr std::array<Switch, 3> switches{
    {{"random", option::randomMode}, {"fade", option::fadeout}, {"sound", option::soundOn}}};

Result<QVariantMap> settingsFrom(const Arguments& arguments)
{
    QVariantMap settings;
    if (const auto mode = arguments.text(QStringLiteral("mode"))) {
        const auto ofMode = settingsOfMode(*mode);
        if (!ofMode)
            return Error{QStringLiteral("--mode is fullscreen, fly or bounce, not \"%1\"").arg(*mode)};
        settings.insert(*ofMode);
    }
    const auto scale = arguments.real(QStringLiteral("scale"), 1, leastScale, mostScale);
    if (!scale) return scale.failure();
    if (arguments.has(QStringLiteral("scale")))
        settings.insert(QVariantMap{storedOption(option::scale, static_cast<float>(scale.value()))});
    for (const Switch& each : switches) {
        const QString word = QString::fromLatin1(each.word);
        const bool isOn = arguments.has(word);
        const bool isOff = arguments.has(QStringLiteral("no-") + word);
        if (isOn && isOff) return Error{QStringLiteral("--%1 and --no-%1 exclude each other").arg(word)};
        if (isOn || isOff) settings.insert(QVariantMap{storedOption(each.option, isOn)});
    }
    return settings;
}

} // namespace

Syntax RunOptions::syntax()
{
    Syntax syntax{
        {},
        QStringLiteral("Movies as a screen saver, now, on every screen: a key, a click or the mouse "
                       "ends it. Or, with --root or\n--window-id, in a window that another program "
                       "hands over, until that program ends it."),
        {}};
    syntax.isOneDashEnough = true;
    syntax.options = {
        {QStringLiteral("root"),
         {},
         QStringLiteral("draw in the window that XSCREENSAVER_WINDOW names, else in the root window")},
        {QStringLiteral("window-id"), QStringLiteral("ID"),
         QStringLiteral("draw a preview in the window of that number: silent, sized to scale")},
        {QStringLiteral("mode"),
         QStringLiteral("MODE"),
         QStringLiteral("fullscreen, fly or bounce, whatever the settings say"),
         false,
         {QStringLiteral("fullscreen"), QStringLiteral("fly"), QStringLiteral("bounce")}},
        {QStringLiteral("scale"), QStringLiteral("S"),
         QStringLiteral("size of a movie that flies or bounces, 1 being its own")},
        {QStringLiteral("random"), {}, QStringLiteral("play in random order")},
        {QStringLiteral("no-random"), {}, QStringLiteral("play in the order of the playlist")},
        {QStringLiteral("fade"), {}, QStringLiteral("a moving movie leaves pictures behind that fade away")},
        {QStringLiteral("no-fade"), {}, QStringLiteral("a moving movie leaves nothing behind")},
        {QStringLiteral("sound"), {}, QStringLiteral("play the movies' sound")},
        {QStringLiteral("no-sound"), {}, QStringLiteral("play no sound")},
        {stopAfterOption, QStringLiteral("TIME"),
         QStringLiteral("be black from then on: 30 for minutes, or 90s, 5m, 1h; 0 never")},
    };
    syntax.options += ScreenWish::options();
    syntax.options += Option{QStringLiteral("version"), {}, QStringLiteral("show the version")};
    return syntax;
}

Result<RunOptions> RunOptions::from(const Arguments& arguments, const QString& handedOver)
{
    RunOptions options;
    const auto settings = settingsFrom(arguments);
    if (!settings) return settings.failure();
    options.settings = settings.value();
    const auto screens = ScreenWish::from(arguments);
    if (!screens) return screens.failure();
    options.screens = screens.value();

    const auto given = arguments.text(QStringLiteral("window-id"));
    options.isPreview = given.has_value();
    options.isInWindow = given || arguments.has(QStringLiteral("root"));
    if (const auto text = arguments.text(stopAfterOption)) {
        if (options.isInWindow)
            return Error{QStringLiteral("--stop-after is not for a window that another program hands over")};
        const auto span = endFrom(*text);
        if (!span) return span.failure();
        options.stopAfter = span.value();
    }
    if (!options.isInWindow || (!given && handedOver.isEmpty())) return options;
    const auto window = given ? windowNumber(QStringLiteral("--window-id"), *given)
                              : windowNumber(QStringLiteral("XSCREENSAVER_WINDOW"), handedOver);
    if (!window) return window.failure();
    options.window = window.value();
    return options;
}

} // namespace kestro
