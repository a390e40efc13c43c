#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <optional>

namespace kestro {

/// The movies that a person never wants to see again, in a file of one URL a line that may be edited by hand.
/// It is read once; what is changed here is written at once, beside what others have written meanwhile.
/// Outlives every saver. Main thread.
class NeverList final {
public:
    /// Says in the log how many there are, where there are any.
    explicit NeverList(QString path);

    [[nodiscard]] bool holds(const QUrl& movie) const;
    /// Puts it on the list. Where that cannot be written it is there for this run alone, and the log says so.
    void add(const QUrl& movie);
    /// Takes the last one off it, and answers that; nothing where the list is empty.
    std::optional<QUrl> takeBack();

private:
    [[nodiscard]] bool read();
    void write();

    QString m_path;
    QStringList m_movies; ///< URLs as texts, the last one added last
};

} // namespace kestro
