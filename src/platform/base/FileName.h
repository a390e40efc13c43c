#pragma once

#include <QString>

#include <string_view>

namespace kestro {

// The name at the end of a path, of a file or of a URL, and its extension. Any thread.

/// The last part of the path, slashes at its end left out; a view of it, empty where there is none.
template <typename Text>
[[nodiscard]] Text lastPart(Text path)
{
    auto end = path.end();
    while (end != path.begin() && *(end - 1) == u'/')
        --end;
    auto begin = end;
    while (begin != path.begin() && *(begin - 1) != u'/')
        --begin;
    return Text(begin, end);
}

/// What follows the last point of that name, as it is written; empty for none. A point at the start of a name
/// hides a file and begins no extension.
template <typename Text>
[[nodiscard]] Text extensionIn(Text path)
{
    const Text name = lastPart(path);
    auto begin = name.end();
    while (begin != name.begin() && *(begin - 1) != u'.')
        --begin;
    return begin - name.begin() > 1 ? Text(begin, name.end()) : Text();
}

[[nodiscard]] inline QString nameOf(const QString& path)
{
    return lastPart(QStringView(path)).toString();
}

[[nodiscard]] inline QString extensionOf(const QString& path)
{
    return extensionIn(QStringView(path)).toString();
}

} // namespace kestro
