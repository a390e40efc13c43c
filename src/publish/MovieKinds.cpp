#include "publish/MovieKinds.h"

#include "platform/base/FileName.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace kestro {

namespace {

struct MovieKind {
    std::string_view extension;
    std::string_view mimeType;
};

// The best known to browsers first. A "mov" is of the family of "mp4" and is tried as one.
constexpr std::array kinds = {
    MovieKind{"mov", "video/mp4"}, MovieKind{"mp4", "video/mp4"},
    MovieKind{"m4v", "video/mp4"}, MovieKind{"webm", "video/webm"},
    MovieKind{"ogv", "video/ogg"}, MovieKind{"mkv", {}},
    MovieKind{"qt", "video/mp4"},  MovieKind{"3gp", {}},
    MovieKind{"3g2", {}},          MovieKind{"avi", {}},
    MovieKind{"mpg", {}},          MovieKind{"mpeg", {}},
    MovieKind{"mpe", {}},          MovieKind{"m1v", {}},
    MovieKind{"m2v", {}},          MovieKind{"ts", {}},
    MovieKind{"mts", {}},          MovieKind{"m2ts", {}},
    MovieKind{"vob", {}},          MovieKind{"wmv", {}},
    MovieKind{"asf", {}},          MovieKind{"flv", {}},
    MovieKind{"f4v", {}},          MovieKind{"dv", {}},
    MovieKind{"divx", {}},         MovieKind{"mxf", {}},
    MovieKind{"ogm", {}},          MovieKind{"y4m", {}},
};

const MovieKind* kindOf(const QString& path)
{
    const std::string extension = lowerCaseExtension(path).toStdString();
    const auto* found = std::ranges::find(kinds, extension, &MovieKind::extension);
    return found == kinds.end() ? nullptr : found;
}

} // namespace

QString movieExtension()
{
    return QStringLiteral("mov");
}

bool isMovieName(const QString& path)
{
    return kindOf(path) != nullptr;
}

QString lowerCaseExtension(const QString& path)
{
    return extensionOf(path).toLower();
}

QString mimeTypeOf(const QString& path)
{
    const MovieKind* kind = kindOf(path);
    return kind ? QString::fromLatin1(kind->mimeType.data(), qsizetype(kind->mimeType.size())) : QString();
}

int browserRank(const QString& path)
{
    const MovieKind* kind = kindOf(path);
    return kind ? int(kind - kinds.data()) : int(kinds.size());
}

} // namespace kestro
