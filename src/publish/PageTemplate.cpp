#include "publish/PageTemplate.h"

#include <QFile>
#include <QRegularExpression>

#include <cassert>

namespace kestro {

namespace {

/// Brackets and points are what calls and feeds' names are made of, braces what gaps are.
bool isPlain(char32_t letter)
{
    static const QString special = QStringLiteral("&<>\"'().{}");
    const bool isAscii = letter >= 0x20 && letter < 0x7f;
    return isAscii && !special.contains(QChar(char16_t(letter)));
}

} // namespace

QString escapedHtml(const QString& text)
{
    QString escaped;
    for (const char32_t letter : text.toUcs4()) {
        if (isPlain(letter))
            escaped += QChar(char16_t(letter));
        else if (letter < 0x20 || letter == 0x7f)
            escaped += u' '; // no reference may stand for a control character
        else
            escaped += QStringLiteral("&#%1;").arg(uint(letter));
    }
    return escaped;
}

PageTemplate PageTemplate::carried(const QString& name)
{
    return PageTemplate(QString::fromLatin1(carriedFile(name)));
}

QString PageTemplate::filled(const Values& values) const
{
    static const QRegularExpression gap(QStringLiteral("\\{\\{(&?)(\\w+)\\}\\}"));
    QString result;
    qsizetype done = 0;
    for (auto gaps = gap.globalMatch(m_text); gaps.hasNext();) {
        const auto match = gaps.next();
        const QString value = values.value(match.captured(2));
        result += QStringView(m_text).mid(done, match.capturedStart() - done);
        result += match.capturedLength(1) > 0 ? value : escapedHtml(value);
        done = match.capturedEnd();
    }
    result += QStringView(m_text).mid(done);
    return result;
}

QByteArray carriedFile(const QString& name)
{
    QFile file(QStringLiteral(":/publish/") + name);
    const bool isThere = file.open(QIODevice::ReadOnly);
    assert(isThere);
    return isThere ? file.readAll() : QByteArray();
}

} // namespace kestro
