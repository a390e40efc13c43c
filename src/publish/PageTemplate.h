#pragma once

#include <QHash>
#include <QString>

namespace kestro {

/// `text` for the content and the attributes of a page: ASCII only, so that it reads the same in whatever
/// encoding it is taken for, and without the characters that those who search pages for calls and feeds go
/// by.
[[nodiscard]] QString escapedHtml(const QString& text);

/// A page, or a part of one, with gaps: "{{name}}" is filled with text, "{{&name}}" with a part that is HTML
/// already. Comes from the files of the site that the program carries. A value.
class PageTemplate final {
public:
    using Values = QHash<QString, QString>;

    explicit PageTemplate(QString text)
        : m_text(std::move(text))
    {
    }
    /// The one named `name`, for example "title.html".
    [[nodiscard]] static PageTemplate carried(const QString& name);

    /// The text with its gaps filled; a gap without a value stays empty. What is filled in is not searched
    /// for gaps.
    [[nodiscard]] QString filled(const Values& values) const;

private:
    QString m_text;
};

/// The bytes of a file of the site that the program carries.
[[nodiscard]] QByteArray carriedFile(const QString& name);

} // namespace kestro
