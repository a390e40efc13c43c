#include "trailers/LinkResolver.h"

#include "platform/base/Bounds.h"
#include "platform/base/FileName.h"
#include "trailers/PageBase.h"
#include "trailers/URLText.h"

#include <algorithm>

namespace kestro {

namespace {

// A link adds to the address of its page, and the page behind it adds again.
bool isTooLong(std::string_view address)
{
    return qint64(address.size()) > Bounds::addressBytes;
}

bool isElsewhere(const URLText& link, const URLText& base)
{
    if (!link.scheme.empty() && link.scheme != base.scheme) return true;
    if (link.authority.empty() || link.authority == base.authority) return false;
    if (link.host().empty()) return false;
    return link.host() != base.host() || link.port(base.scheme) != base.port(base.scheme);
}

/// The components of a path, gathered one by one at the end of a URL's text. The root is a component too, and
/// goes when all others are gone.
class GatheredPath final {
public:
    GatheredPath(std::string& text, std::string_view start)
        : m_text(text)
        , m_begin(text.size())
    {
        if (start.starts_with('/')) {
            m_text += '/';
            m_hasRoot = true;
            ++m_begin;
        }
        forEachComponent(start, [this](std::string_view component) { append(component); });
    }

    /// Goes along the components of `path`: up for "..", nowhere for ".", down for all else.
    void walk(std::string_view path)
    {
        forEachComponent(path, [this](std::string_view component) {
            if (component == "..")
                removeLast();
            else if (component != ".")
                append(component);
        });
    }

private:
    template <typename Visit>
    static void forEachComponent(std::string_view path, const Visit& visit)
    {
        while (!path.empty()) {
            const auto end = std::min(path.find('/'), path.size());
            if (end > 0) visit(path.substr(0, end));
            path.remove_prefix(std::min(end + 1, path.size()));
        }
    }

    void append(std::string_view component)
    {
        if (m_text.size() > m_begin) m_text += '/';
        m_text += component;
    }

    void removeLast()
    {
        if (m_text.size() == m_begin) return removeRoot();
        const auto slash = m_text.rfind('/');
        m_text.erase(slash == std::string::npos || slash < m_begin ? m_begin : slash);
    }

    void removeRoot()
    {
        if (!m_hasRoot) return;
        m_hasRoot = false;
        m_text.erase(--m_begin);
    }

    std::string& m_text;
    std::size_t m_begin; ///< where the components begin, after the root
    bool m_hasRoot = false;
};

} // namespace

std::optional<std::string> mergedStringFromToURL(std::string_view link, const PageBase& base)
{
    if (isTooLong(link)) return {};
    const auto url = URLText::parse(link);
    if (!url || url->path().empty() || isElsewhere(*url, base.parts())) return {};
    std::string text;
    text.reserve(base.absoluteString().size() + link.size() + 2);
    text.append(base.parts().scheme).append("://").append(base.parts().hostAndPort());
    const std::size_t start = text.size();
    if (url->path().starts_with('/'))
        text += url->path();
    else
        GatheredPath(text, base.path()).walk(link);
    const auto path = std::string_view(text).substr(start);
    if (!path.ends_with('/') && extensionIn(path).empty()) text += '/';
    if (isTooLong(text)) return {};
    return text;
}

std::optional<std::string> mergeURLStringToURL(std::string_view link, const PageBase& base)
{
    // A path of legal characters below a legal base is a URL.
    return mergedStringFromToURL(link, base);
}

bool CrawledSite::isOnHost(std::string_view url) const
{
    const auto parts = URLText::parse(url);
    if (!parts || host.empty()) return false;
    URLText site;
    site.authority = host;
    if (parts->host() != site.host()) return false;
    const auto port = site.port({});
    return port.empty() || port == parts->port(parts->scheme);
}

bool CrawledSite::isValidURL(std::string_view url,
                             const std::function<bool(std::string_view url)>& isPassed) const
{
    if (!isOnHost(url)) return false;
    const auto path = URLText::parse(url)->path();
    return path.starts_with("/trailers") && !hasExtension(path, "css") && !isPassed(url);
}

} // namespace kestro
