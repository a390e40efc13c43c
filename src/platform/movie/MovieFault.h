#pragma once

#include <QString>

namespace kestro {

/// Why a movie cannot be opened. Windows say it in the person's language, of the words below in the context
/// "MovieFault"; logs and commands as they are. A value; any thread.
struct MovieFault {
    enum class Kind {
        NoFile,
        NoRegularFile,
        NotReadable,
        EmptyFile,
        NoMovieFormat,
        NoVideo,
        NoDecoder, ///< detail: the codec's name
        TooLarge,  ///< detail: its size
        Damaged,
        NoAnswer,
        NotReached,
        NotOnServer,
        RefusedByServer,
        OtherScheme,
        OutOfMemory,
        Other, ///< detail: the library's own words
    };

    Kind kind = Kind::Other;
    QString detail{};

    bool operator==(const MovieFault&) const = default;
};

/// The few words that say so, in English, "%1" standing for the detail; the key of their translation.
[[nodiscard]] const char* wordsOf(MovieFault::Kind kind);

/// The same with the detail in its place.
[[nodiscard]] QString plainWords(const MovieFault& fault);

} // namespace kestro
