#pragma once

#include "platform/base/Result.h"

#include <QByteArray>
#include <QList>
#include <QSet>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

namespace kestro {

/// The text of kestro.conf, which a person may write by hand: `key=value` below `[section]`, comments after a
/// # or a ; at the start of a line. Every byte that is not asked to change stays as it is. A plain value.
class ConfigurationFile final {
public:
    /// The log calls the file `path`; it tells of each line that is not understood, once, here.
    ConfigurationFile(const QByteArray& text, QString path);

    /// The one at `path`, empty where there is none. One that cannot be read is logged and is empty too.
    [[nodiscard]] static ConfigurationFile at(const QString& path);
    /// The user's own.
    [[nodiscard]] static ConfigurationFile ofUser();
    /// Whether all that it says is known: false for one that is there and could not be read.
    [[nodiscard]] bool isKnown() const { return m_isKnown; }

    /// The value of a key without the quotes around it; of one that stands there twice the last. Nothing
    /// where it does not stand there.
    [[nodiscard]] std::optional<QString> value(const QString& section, const QString& key) const;
    /// Whether the value of a key is "yes": no where it is "no" or does not stand there, and, with a line in
    /// the log, where it is anything else.
    [[nodiscard]] bool isYes(const QString& section, const QString& key) const;
    /// The keys of a section in the order of their lines, each once.
    [[nodiscard]] QStringList keys(const QString& section) const;
    /// Logs each key of `section` that is not among `known`.
    void warnAboutUnknown(const QString& section, const QStringList& known) const;
    /// Logs that the value of a key is not understood, and why.
    void warnAbout(const QString& section, const QString& key, const QString& what) const;
    /// Whether somebody has logged that of this key.
    [[nodiscard]] bool isDoubted(const QString& section, const QString& key) const;
    /// Where the value of a key stands, as "path:12"; empty where it does not.
    [[nodiscard]] QString placeOf(const QString& section, const QString& key) const;

    /// Changes the key where it stands, or adds it at the end of its section, which is added where it is
    /// missing.
    void set(const QString& section, const QString& key, const QString& value);
    /// Removes every line of the key.
    void remove(const QString& section, const QString& key);
    [[nodiscard]] QByteArray text() const { return m_lines.join('\n'); }

private:
    struct Entry {
        QString section;
        QString key;
        QString value;
        qsizetype line = 0; ///< from 0
    };

    void read();
    [[nodiscard]] const Entry* find(const QString& section, const QString& key) const;
    [[nodiscard]] qsizetype endOf(const QString& section) const;
    void warn(qsizetype line, const QString& what) const;

    QString m_path;
    bool m_isKnown = true;
    QList<QByteArray> m_lines;
    QList<Entry> m_entries;
    QList<Entry> m_sections;           ///< their headers
    mutable QSet<qsizetype> m_doubted; ///< lines whose values are not understood
};

/// Has the file at `path` changed, and writes it, whole or not at all; its folder is made where it is
/// missing. A file that cannot be read is left as it is. The error is one line.
[[nodiscard]] Result<void> changeConfiguration(const QString& path,
                                               const std::function<void(ConfigurationFile&)>& change);

/// kestro/kestro.conf in the configuration folder, which is .config in KESTRO_HOME where that is set, else
/// XDG_CONFIG_HOME, else .config in the home folder. It need not exist.
[[nodiscard]] QString configurationFile();

/// That folder.
[[nodiscard]] QString configurationFolder();

} // namespace kestro
