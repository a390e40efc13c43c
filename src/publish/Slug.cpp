#include "publish/Slug.h"

#include <QCryptographicHash>

#include <algorithm>

namespace kestro {

namespace {

constexpr qsizetype longestSlug = 60;
constexpr qsizetype digestLetters = 8;

/// Letters that no accent can be taken off, as they are written without them.
QString spelledOut(QString name)
{
    static const std::pair<char16_t, const char*> letters[] = {{u'ß', "ss"}, {u'æ', "ae"}, {u'ø', "o"},
                                                               {u'œ', "oe"}, {u'ł', "l"},  {u'đ', "d"},
                                                               {u'þ', "th"}, {u'ð', "d"}};
    for (const auto& [letter, ascii] : letters)
        name.replace(QChar(letter), QLatin1String(ascii));
    return name;
}

QString plainLetters(const QString& name)
{
    return spelledOut(name.toLower()).normalized(QString::NormalizationForm_KD);
}

bool isSlugLetter(QChar letter)
{
    return (letter >= u'a' && letter <= u'z') || (letter >= u'0' && letter <= u'9');
}

/// Whether a letter of another script is lost in the slug.
bool losesLetters(const QString& name)
{
    return std::ranges::any_of(plainLetters(name), [](QChar letter) {
        return (letter.isLetterOrNumber() || letter.isSurrogate()) && !isSlugLetter(letter);
    });
}

QString digest(const QString& key)
{
    const QByteArray hash = QCryptographicHash::hash(key.toUtf8(), QCryptographicHash::Sha1);
    return QString::fromLatin1(hash.toHex().left(digestLetters));
}

} // namespace

QString slugOf(const QString& name)
{
    QString slug;
    for (const QChar letter : plainLetters(name)) {
        if (isSlugLetter(letter)) slug += letter;
        // An accent, or the apostrophe of "don't", is no gap between two words.
        else if (!letter.isMark() && letter != u'\'' && letter != u'’' && !slug.isEmpty() &&
                 !slug.endsWith(u'-'))
            slug += u'-';
    }
    slug.truncate(longestSlug);
    while (slug.endsWith(u'-'))
        slug.chop(1);
    return slug;
}

QString SlugMaker::slugFor(const QString& name, const QString& key)
{
    const QString plain = slugOf(name);
    QString slug = plain;
    QString salted = key;
    while (slug.isEmpty() || m_taken.contains(slug) || (slug == plain && losesLetters(name))) {
        slug = (plain.isEmpty() ? QStringLiteral("title") : plain) + u'-' + digest(salted);
        salted += u'/';
    }
    m_taken.insert(slug);
    return slug;
}

} // namespace kestro
