#include "trailers/PageBase.h"

#include <algorithm>

namespace kestro {

namespace {

void dropLastComponent(std::string& path)
{
    const auto slash = path.rfind('/');
    path.erase(slash == std::string::npos ? 0 : slash);
}

/// RFC 3986, 5.2.4, for a path that begins with "/".
std::string withoutDots(std::string_view path)
{
    std::string result;
    result.reserve(path.size());
    while (!path.empty()) {
        const auto end = std::min(path.find('/', 1), path.size());
        const auto component = path.substr(0, end);
        path.remove_prefix(end);
        const bool isUp = component == "/..";
        if (isUp) dropLastComponent(result);
        if (!isUp && component != "/.")
            result += component;
        else if (path.empty())
            result += '/';
    }
    return result;
}

} // namespace

std::optional<PageBase> PageBase::from(std::string_view absoluteString)
{
    PageBase base(std::make_shared<const std::string>(absoluteString));
    if (base.m_parts.scheme.empty() || base.m_parts.host().empty()) return {};
    return base;
}

PageBase::PageBase(std::shared_ptr<const std::string> text)
    : m_text(std::move(text))
    , m_parts(URLText::parse(*m_text).value_or(URLText()))
{
}

std::string_view PageBase::path() const
{
    const auto path = m_parts.path();
    return path.empty() ? std::string_view("/") : path;
}

std::optional<std::string> PageBase::absoluteURL(std::string_view reference) const
{
    const auto url = URLText::parse(reference);
    if (!url) return {};
    if (!url->scheme.empty()) return std::string(reference);
    const URLText& own = m_parts;
    std::string text = std::string(own.scheme) + ':';
    if (url->hasAuthority) return text.append(reference);
    text.append("//").append(own.authority);
    if (url->rawPath.empty())
        return text.append(own.rawPath)
            .append(url->query.empty() ? own.query : url->query)
            .append(url->fragment);
    std::string path(url->rawPath.starts_with('/') ? "" : own.rawPath.substr(0, own.rawPath.rfind('/') + 1));
    if (path.empty() && !url->rawPath.starts_with('/')) path = '/';
    path += url->rawPath;
    return text.append(withoutDots(path)).append(url->query).append(url->fragment);
}

} // namespace kestro
