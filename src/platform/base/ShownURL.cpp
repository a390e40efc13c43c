#include "platform/base/ShownURL.h"

#include "platform/base/Bounds.h"

#include <QString>
#include <QUrl>

#include <algorithm>
#include <optional>

namespace kestro {

namespace {

const QString leftOut = QStringLiteral("…");

bool isSlash(QChar c)
{
    return c == u'/' || c == u'\\';
}

bool isOfScheme(QChar c)
{
    const char16_t code = c.unicode();
    return (code < 0x80 && c.isLetterOrNumber()) || code == u'+' || code == u'-' || code == u'.';
}

bool endsWord(QChar c)
{
    return c.isSpace() || c.category() == QChar::Other_Control;
}

/// Where a URL begins in a line, and what comes after its scheme.
struct Begin {
    qsizetype scheme; ///< its first letter
    qsizetype colon;
    qsizetype rest; ///< past the colon and the slashes

    [[nodiscard]] bool isData(QStringView line) const { return is(line, u"data"); }
    [[nodiscard]] bool isFile(QStringView line) const { return is(line, u"file"); }

private:
    [[nodiscard]] bool is(QStringView line, QStringView name) const
    {
        return line.sliced(scheme, colon - scheme).compare(name, Qt::CaseInsensitive) == 0;
    }
};

/// What browsers take for a URL is one here: one slash is enough behind http, and it may lean either way.
std::optional<Begin> beginAt(QStringView line, qsizetype colon, qsizetype from)
{
    qsizetype scheme = colon;
    while (scheme > from && isOfScheme(line[scheme - 1]))
        --scheme;
    while (scheme < colon && !line[scheme].isLetter())
        ++scheme;
    if (scheme == colon) return {};
    Begin begin{scheme, colon, colon + 1};
    while (begin.rest < line.size() && isSlash(line[begin.rest]))
        ++begin.rest;
    const qsizetype slashes = begin.rest - colon - 1;
    const bool isWeb = line.sliced(scheme, colon - scheme).startsWith(u"http", Qt::CaseInsensitive);
    const bool isURL = slashes >= 2 || (isWeb && slashes == 1) || begin.isData(line);
    return isURL ? std::optional(begin) : std::nullopt;
}

std::optional<Begin> nextURL(QStringView line, qsizetype from)
{
    for (qsizetype colon = line.indexOf(u':', from); colon >= 0; colon = line.indexOf(u':', colon + 1))
        if (const auto begin = beginAt(line, colon, from)) return begin;
    return {};
}

/// What closes a quotation that the character before a URL opens.
QChar closerOf(QChar opener)
{
    switch (opener.unicode()) {
    case u'\'':
    case u'"':
    case u'`':
        return opener;
    case u'(':
        return u')';
    case u'[':
        return u']';
    case u'<':
        return u'>';
    default:
        return {};
    }
}

/// Where the URL ends: with its word, but before what closes its quotation or the sentence. Blanks in
/// quotations are not waited for: a quotation mark may be part of a URL, and of a word alike.
qsizetype endOf(QStringView line, const Begin& begin)
{
    const auto* const last = std::find_if(line.begin() + begin.rest, line.end(), endsWord);
    qsizetype end = last - line.begin();
    const QChar closer = begin.scheme > 0 ? closerOf(line[begin.scheme - 1]) : QChar();
    if (!closer.isNull())
        if (const qsizetype closed = line.first(end).lastIndexOf(closer); closed >= begin.rest) return closed;
    while (end > begin.rest && QStringView(u".,:;)]}>'\"").contains(line[end - 1]))
        --end;
    return end;
}

qsizetype firstOf(QStringView line, QStringView characters, qsizetype from, qsizetype end)
{
    const auto* const found = std::find_if(line.begin() + from, line.begin() + end,
                                           [&](QChar c) { return characters.contains(c); });
    return found - line.begin();
}

/// Whether what stands where host and port do has a port that can be none. Then it is the start of a password
/// that was written as it is.
bool hasFalsePort(QStringView authority)
{
    const qsizetype colon = authority.indexOf(u':', authority.lastIndexOf(u']') + 1);
    if (colon < 0) return false;
    const QStringView port = authority.sliced(colon + 1);
    return std::any_of(port.begin(), port.end(), [](QChar c) { return c < u'0' || c > u'9'; });
}

/// Rewrites one line.
class Stripper final {
public:
    explicit Stripper(QStringView line)
        : m_line(line)
    {
    }

    QString stripped()
    {
        while (const auto begin = nextURL(m_line, m_at))
            takeURL(*begin);
        keepUntil(m_line.size());
        return m_shown;
    }

private:
    void keepUntil(qsizetype end)
    {
        m_shown += m_line.sliced(m_at, end - m_at);
        m_at = end;
    }

    void leaveOutUntil(qsizetype end)
    {
        if (m_at < end) m_shown += leftOut;
        m_at = end;
    }

    void takeURL(const Begin& begin)
    {
        keepUntil(begin.rest);
        const qsizetype end = endOf(m_line, begin);
        if (begin.isData(m_line) && m_line.sliced(begin.rest, end - begin.rest).contains(u','))
            return leaveOutUntil(end);
        takeUser(end);
        if (m_at > end) return;
        const auto inner = nextURL(m_line.first(end), m_at);
        const qsizetype nextBegin = inner ? inner->scheme : end;
        const qsizetype pathEnd = std::min(firstOf(m_line, u"?#", m_at, end), nextBegin);
        takePath(pathEnd, begin.isFile(m_line));
        if (pathEnd == nextBegin) return; // one URL in another's path: it is the next to be looked at
        keepUntil(pathEnd + 1);
        leaveOutUntil(end);
    }

    void takeUser(qsizetype end)
    {
        const auto inner = nextURL(m_line.first(end), m_at);
        const qsizetype limit = inner ? inner->scheme : end;
        const qsizetype authorityEnd = firstOf(m_line, u"/\\?#", m_at, limit);
        const QStringView authority = m_line.sliced(m_at, authorityEnd - m_at);
        const qsizetype user = authority.lastIndexOf(u'@');
        if (user >= 0) {
            const bool hasPassword = authority.first(user).contains(u':');
            const qsizetype later = hasPassword ? m_line.first(limit).lastIndexOf(u'@') : -1;
            m_at = std::max(m_at + user, later) + 1;
        } else if (hasFalsePort(authority) && limit == end) {
            dropFalsePort();
        }
    }

    /// A password with slashes or blanks in it ends at the next "@".
    void dropFalsePort()
    {
        const auto next = nextURL(m_line, m_at);
        const qsizetype limit = next ? next->scheme : m_line.size();
        const qsizetype user = m_line.first(limit).lastIndexOf(u'@');
        if (user >= m_at)
            m_at = user + 1;
        else
            keepUntil(m_line.indexOf(u':', m_at) + 1);
    }

    /// A path with the parameters of its parts left out, and what looks like an encoded URL. The names of
    /// files are whole.
    void takePath(qsizetype end, bool isFile)
    {
        while (!isFile && m_at < end) {
            const qsizetype semicolon = firstOf(m_line, u";", m_at, end);
            const qsizetype encoded = m_line.first(end).indexOf(u"%3A%2F%2F", m_at, Qt::CaseInsensitive);
            const qsizetype secret = encoded < 0 ? semicolon : std::min(semicolon, encoded);
            keepUntil(std::min(secret + 1, end));
            if (secret < end) leaveOutUntil(firstOf(m_line, u"/", m_at, end));
        }
        keepUntil(end);
    }

    QStringView m_line;
    qsizetype m_at = 0;
    QString m_shown;
};

/// With the start and the end, which tell most.
QString shortened(const QString& text, qsizetype most)
{
    if (text.size() <= most) return text;
    const qsizetype atEnd = most / 2;
    return text.first(most - atEnd - leftOut.size()) + leftOut + text.last(atEnd);
}

} // namespace

QString shownURL(const QUrl& url)
{
    if (!url.isValid()) return QStringLiteral("(no valid URL)");
    const auto parts = QUrl::RemoveUserInfo | QUrl::RemoveQuery | QUrl::RemoveFragment;
    const QString text = url.adjusted(parts).toString(QUrl::FullyEncoded);
    const QString whole = url.hasQuery() ? text + u'?' + leftOut : text;
    // A site may name addresses of any length, with addresses in them.
    return shortened(withoutSecrets(shortened(whole, Bounds::logLineCharacters)), Bounds::shownURLCharacters);
}

QString withoutSecrets(const QString& line)
{
    return line.contains(u':') ? Stripper(line).stripped() : line;
}

} // namespace kestro
