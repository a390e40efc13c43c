#pragma once

#include <QString>
#include <QUrl>

namespace kestro {

/// A row of a table: a URL, and what is to be told of it.
struct URLCase {
    const char* url;
    const char* expected;
};

inline QUrl urlOf(const char* text)
{
    return QUrl(QString::fromUtf8(text));
}

} // namespace kestro
