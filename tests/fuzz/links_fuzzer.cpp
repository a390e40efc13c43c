#include "Target.h"
#include "platform/base/FileName.h"
#include "trailers/CallArguments.h"
#include "trailers/LinkResolver.h"
#include "trailers/PageBase.h"

#include <algorithm>

using namespace kestro;

namespace {

void checkResolved(std::string_view link, const PageBase& base)
{
    const auto merged = mergedStringFromToURL(link, base);
    if (!merged) return;
    expect(URLText::parse(*merged).has_value(), "what a link is merged into is a URL");
    expect(merged->starts_with(std::string(base.parts().scheme) + "://"), "a link stays in its scheme");
    expect(merged->find(base.parts().hostAndPort()) != std::string::npos, "a link stays on its host");
    expect(merged->ends_with('/') || !extensionIn(std::string_view(*merged)).empty(),
           "a link without extension is a folder");
}

} // namespace

/// Lines: a base, a link, a site's host; the whole is the argument of a call too.
void kestro::tryInput(std::string_view text)
{
    const auto first = std::min(text.find('\n'), text.size());
    const auto second = std::min(text.find('\n', first + 1), text.size());
    const auto link = text.substr(std::min(first + 1, text.size()), second - std::min(first + 1, second));
    const auto host = text.substr(std::min(second + 1, text.size()));
    if (const auto base = PageBase::from(text.substr(0, first))) {
        checkResolved(link, *base);
        const auto url = base->absoluteURL(link);
        expect(!url || URLText::parse(*url).has_value(), "an absolute URL is a URL");
    }
    const CrawledSite site{std::string(host)};
    const bool isValid = site.isValidURL(link, [](std::string_view) { return false; });
    expect(!isValid || link.find("/trailers") != std::string_view::npos,
           "what is followed lies below the trailers");
    expect(!site.isValidURL(link, [](std::string_view) { return true; }), "nothing is visited twice");
    expect(internalStringRemoveSpc(text, false) == internalString(text), "the flag alone removes spaces");
    std::ptrdiff_t arguments = 0;
    for (CallArguments call(text); call.next();)
        ++arguments;
    expect(arguments == std::ranges::count(text, ',') + 1, "each comma parts two");
    if (const auto attributes = attrToDict(text))
        for (const auto& [key, value] : *attributes)
            expect((key + value).find_first_of(" \n\t:,}") == std::string::npos,
                   "attributes hold no separators");
}
