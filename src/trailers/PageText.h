#pragma once

#include <QByteArray>

namespace kestro {

/// How the bytes of a page are read as text. Either way a byte is a character, so text stays bytes here.
/// Tested by ScanCrawlerTest.
enum class PageEncoding {
    Ascii = 1, ///< the numbers are those of the platform
    IsoLatin1 = 5,
};

/// Whether `page` is text in that encoding: any bytes are in ISO Latin 1, none from 128 on in ASCII.
[[nodiscard]] bool isText(const QByteArray& page, PageEncoding encoding);

/// Whether "<html>" is in the page, in whatever case.
[[nodiscard]] bool holdsHtmlTag(const QByteArray& page);

} // namespace kestro
