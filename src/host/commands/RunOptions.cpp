#include "host/commands/RunOptions.h"

#include <array>

namespace kestro {

namespace {

constexpr double leastScale = 0.01;
constexpr double mostScale = 100;

QString number(int value)
{
    return QString::number(value);
}

/// "0x2a00007" or "44040199", as window numbers are written everywhere.
Result<std::uint32_t> windowNumber(const QString& source, const QString& text)
{
    const bool isHex = text.startsWith(QStringLiteral("0x"), Qt::CaseInsensitive);
    bool isNumber = false;
    const std::uint32_t window = (isHex ? text.mid(2) : text).toUInt(&isNumber, isHex ? 16 : 10);
    if (isNumber) return window;
    return Error{QStringLiteral("%1 needs the number of a window, not \"%2\"").arg(source, text)};
}

/// The mode's name on the command line and its keys. Nothing for another name.
std::optional<QVariantMap> keysOfMode(const QString& mode)
{
    const QString fullScreen = QStringLiteral("FullScreenMode");
    const QString partial = QStringLiteral("PartialMode");
    if (mode == u"fullscreen") return QVariantMap{{fullScreen, number(1)}};
    if (mode == u"fly") return QVariantMap{{fullScreen, number(0)}, {partial, number(0)}};
    if (mode == u"bounce") return QVariantMap{{fullScreen, number(0)}, {partial, number(1)}};
    return {};
}

/// An option that switches a setting on, or off with "no-" before its name.
struct Switch {
    QString option;
    QString key;
};

std::array<Switch, 3> switches()
{
    return {Switch{QStringLiteral("random"), QStringLiteral("RandomMode")},
            Switch{QStringLiteral("fade"), QStringLiteral("Fadeout")},
            Switch{QStringLiteral("sound"), QStringLiteral("SoundOn")}};
}

Result<QVariantMap> settingsFrom(const Arguments& arguments)
{
    QVariantMap settings;
    if (const auto mode = arguments.text(QStringLiteral("mode"))) {
        const auto keys = keysOfMode(*mode);
        if (!keys) return Error{QStringLiteral("--mode is fullscreen, fly or bounce, not \"%1\"").arg(*mode)};
        settings.insert(*keys);
    }
    const auto scale = arguments.real(QStringLiteral("scale"), 1, leastScale, mostScale);
    if (!scale) return Error{scale.error()};
    if (arguments.has(QStringLiteral("scale")))
        settings.insert(QStringLiteral("Scale"), QString::number(scale.value()));
    for (const Switch& each : switches()) {
        const bool isOn = arguments.has(each.option);
        const bool isOff = arguments.has(QStringLiteral("no-") + each.option);
        if (isOn && isOff)
            return Error{QStringLiteral("--%1 and --no-%1 exclude each other").arg(each.option)};
        if (isOn || isOff) settings.insert(each.key, number(isOn ? 1 : 0));
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
        {QStringLiteral("mode"), QStringLiteral("MODE"),
         QStringLiteral("fullscreen, fly or bounce, whatever the settings say")},
        {QStringLiteral("scale"), QStringLiteral("S"),
         QStringLiteral("size of a movie that flies or bounces, 1 being its own")},
        {QStringLiteral("random"), {}, QStringLiteral("play in random order")},
        {QStringLiteral("no-random"), {}, QStringLiteral("play in the order of the playlist")},
        {QStringLiteral("fade"), {}, QStringLiteral("a moving movie leaves pictures behind that fade away")},
        {QStringLiteral("no-fade"), {}, QStringLiteral("a moving movie leaves nothing behind")},
        {QStringLiteral("sound"), {}, QStringLiteral("play the movies' sound")},
        {QStringLiteral("no-sound"), {}, QStringLiteral("play no sound")},
        {QStringLiteral("version"), {}, QStringLiteral("show the version")},
    };
    return syntax;
}

Result<RunOptions> RunOptions::from(const Arguments& arguments, const QString& handedOver)
{
    RunOptions options;
    const auto settings = settingsFrom(arguments);
    if (!settings) return Error{settings.error()};
    options.settings = settings.value();

    const auto given = arguments.text(QStringLiteral("window-id"));
    options.isPreview = given.has_value();
    options.isInWindow = given || arguments.has(QStringLiteral("root"));
    if (!options.isInWindow || (!given && handedOver.isEmpty())) return options;
    const auto window = given ? windowNumber(QStringLiteral("--window-id"), *given)
                              : windowNumber(QStringLiteral("XSCREENSAVER_WINDOW"), handedOver);
    if (!window) return Error{window.error()};
    options.window = window.value();
    return options;
}

} // namespace kestro
