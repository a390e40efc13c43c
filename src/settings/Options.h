#pragma once

#include <QLatin1StringView>
#include <QString>
#include <QVariant>

#include <optional>
#include <tuple>
#include <utility>

namespace kestro {

class SettingsStore;

/// One option of the settings file: the only place that spells its key and says how it reads. `Value` is bool
/// (on where the number is not 0), int or float.
template <typename Value>
struct StoredOption {
    QLatin1StringView key;
    QLatin1StringView accessor; ///< of Settings, and its name in reports
    Value whenAbsent{};
    Value (*ofOlderRelease)(SettingsStore&) = nullptr; ///< asked instead where the key is absent
};

/// An option that is text, or nothing.
struct StoredText {
    QLatin1StringView key;
    QLatin1StringView accessor;
};

/// An option that is a list, or nothing.
struct StoredList {
    QLatin1StringView key;
};

/// What the option is now, by the rules of its kind, of absence and of older releases. Main thread.
[[nodiscard]] bool readOption(const StoredOption<bool>& option, SettingsStore& store);
[[nodiscard]] int readOption(const StoredOption<int>& option, SettingsStore& store);
[[nodiscard]] float readOption(const StoredOption<float>& option, SettingsStore& store);
/// Nothing where what is stored is no text.
[[nodiscard]] std::optional<QString> readOption(const StoredText& option, SettingsStore& store);
/// Empty where what is stored is no list.
[[nodiscard]] std::optional<QVariantList> readOption(const StoredList& option, SettingsStore& store);

/// The option's key, and the form in which `value` is stored there. Any thread.
[[nodiscard]] std::pair<QString, QVariant> storedOption(const StoredOption<bool>& option, bool value);
[[nodiscard]] std::pair<QString, QVariant> storedOption(const StoredOption<int>& option, int value);
[[nodiscard]] std::pair<QString, QVariant> storedOption(const StoredOption<float>& option, float value);
[[nodiscard]] std::pair<QString, QVariant> storedOption(const StoredText& option, const QString& value);
[[nodiscard]] std::pair<QString, QVariant> storedOption(const StoredList& option, const QVariantList& value);

constexpr int settingsVersion = 5; ///< the first whose playlist holds URLs; before it, paths

/// What the options below mean that are one of several. What is stored may be any other number.
enum PlayMode : int { PlayModeFitted = 0, PlayModeStretched = 1, PlayModeEnlarged = 2 };
enum PartialMode : int { PartialModeFly = 0, PartialModeBounce = 1 };
enum Reposition : int { RepositionEveryInterval = 0, RepositionWhenMovieEnds = 1 };

namespace option {

/// What the older releases' keys make of an option that they did not have.
[[nodiscard]] bool olderFullScreen(SettingsStore& store);
[[nodiscard]] int olderPartialMode(SettingsStore& store);
[[nodiscard]] int olderPlayMode(SettingsStore& store);

using namespace Qt::StringLiterals;

inline constexpr StoredList fileList{"FileList"_L1};
inline constexpr StoredOption<int> ver{"Ver"_L1, "plistVersion"_L1};
inline constexpr StoredOption<bool> soundOn{"SoundOn"_L1, "isSoundOn"_L1};
inline constexpr StoredOption<bool> fullScreenMode{"FullScreenMode"_L1, "isFullScreen"_L1, true,
                                                   olderFullScreen};
inline constexpr StoredOption<int> playMode{"PlayMode"_L1, "playMode"_L1, 0, olderPlayMode};
inline constexpr StoredOption<int> partialMode{"PartialMode"_L1, "partialMode"_L1, 0, olderPartialMode};
inline constexpr StoredOption<float> scale{"Scale"_L1, "scaleFactor"_L1, 1.0F};
inline constexpr StoredOption<int> reposition{"Reposition"_L1, "reposition"_L1};
inline constexpr StoredOption<float> interval{"Interval"_L1, "timeInterval"_L1, 4.0F}; ///< seconds
inline constexpr StoredOption<bool> randomMode{"RandomMode"_L1, "isRandomMode"_L1};
inline constexpr StoredOption<bool> resume{"Continue"_L1, "isContinue"_L1};
inline constexpr StoredOption<bool> fadeout{"Fadeout"_L1, "fadeoutEffect"_L1};
inline constexpr StoredOption<bool> backAndForth{"BackAndForth"_L1, "backAndForth"_L1};
inline constexpr StoredText backSaver{"BackSaver"_L1, "backSaver"_L1}; ///< full path of a bundle

// Of older releases, which are read and never written.
inline constexpr StoredOption<bool> flyMode{"FlyMode"_L1, "_isFlyMode"_L1};
inline constexpr StoredOption<bool> bounce{"Bounce"_L1, "_isBounceMode"_L1};
inline constexpr StoredOption<int> fullScreen{"FullScreen"_L1, "playMode"_L1};

/// For one run only: nothing of it is to be stored.
inline constexpr StoredOption<bool> leavesNothing{"LeavesNothing"_L1, {}};

/// Every option that an accessor of its own answers.
inline constexpr std::tuple reported{ver,          soundOn,  fullScreenMode, playMode,   partialMode,
                                     scale,        interval, reposition,     randomMode, resume,
                                     backAndForth, fadeout,  flyMode,        bounce,     backSaver};

} // namespace option

/// Keys of the file that says where the last run stopped.
namespace resumeKey {
using namespace Qt::StringLiterals;
inline constexpr QLatin1StringView lastMovie = "LastMovie"_L1; ///< name of the movie's file
inline constexpr QLatin1StringView lastPos = "LastPos"_L1;     ///< movie time units
} // namespace resumeKey

} // namespace kestro
