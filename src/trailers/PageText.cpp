#include "trailers/PageText.h"

#include "trailers/TextSearch.h"

#include <algorithm>
#include <string_view>

namespace kestro {

bool isText(const QByteArray& page, PageEncoding encoding)
{
    return encoding == PageEncoding::IsoLatin1 ||
           std::all_of(page.begin(), page.end(), [](char c) { return static_cast<unsigned char>(c) < 128; });
}

bool holdsHtmlTag(const QByteArray& page)
{
    static constexpr TextSearch tag("<html>");
    return tag.find({page.constData(), static_cast<std::size_t>(page.size())}) != TextSearch::npos;
}

} // namespace kestro
