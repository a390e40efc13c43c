#include "settings/EntryMarks.h"

#include "platform/base/ConfigurationFile.h"
#include "settings/FolderEntry.h"
#include "settings/MovieURL.h"

#include <algorithm>

namespace kestro {

namespace {

const QString section = QStringLiteral("marks");

/// An entry and what a line says of it; nothing where it is no such line.
std::optional<std::pair<QUrl, EntryMark>> markIn(const QString& value)
{
    const QString text = value.trimmed();
    const qsizetype blank = std::max(text.lastIndexOf(u' '), text.lastIndexOf(u'\t'));
    const QUrl entry(text.mid(blank + 1));
    const auto mark = entryMarkFrom(text.left(blank + 1));
    if (!mark || !entry.isValid() || entry.isRelative()) return {};
    return std::pair(entry, *mark);
}

/// The lines of one section of a file, by the entries that they are about.
class MarkLines {
public:
    explicit MarkLines(ConfigurationFile& file)
        : m_file(file)
    {
        for (const QString& key : file.keys(section)) {
            m_lastNumber = std::max(m_lastNumber, key.toInt());
            if (const auto said = markIn(*file.value(section, key))) m_keys[said->first].append(key);
        }
    }

    void say(const QUrl& entry, const EntryMark& mark)
    {
        QStringList keys = m_keys.take(entry);
        const QString words = textOf(mark);
        if (!words.isEmpty()) {
            const QString key = keys.isEmpty() ? QString::number(++m_lastNumber) : keys.takeLast();
            m_file.set(section, key, words + u' ' + absoluteString(entry));
        }
        for (const QString& key : keys)
            m_file.remove(section, key);
    }

private:
    ConfigurationFile& m_file;
    QHash<QUrl, QStringList> m_keys;
    int m_lastNumber = 0;
};

} // namespace

EntryMarks::EntryMarks(const ConfigurationFile& file, QString path)
    : m_path(std::move(path))
{
    for (const QString& key : file.keys(section)) {
        const QString value = *file.value(section, key);
        if (const auto said = markIn(value))
            m_marks.insert(said->first, said->second);
        else
            file.warnAbout(
                section, key,
                QStringLiteral("\"%1\" is no \"star\", time of day or both before a URL").arg(value));
    }
}

EntryMark EntryMarks::of(const QUrl& entry) const
{
    if (isFolderEntry(entry)) return markOfFolder(entry);
    return m_marks.isEmpty() ? EntryMark() : m_marks.value(entry);
}

Result<void> EntryMarks::change(const Wishes& wishes)
{
    Wishes changes;
    for (const auto& [entry, mark] : wishes) {
        if (isFolderEntry(entry) || of(entry) == mark) continue;
        changes.append({entry, mark});
        m_marks.insert(entry, mark);
    }
    if (changes.isEmpty() || m_path.isEmpty()) return {};
    return changeConfiguration(m_path, [&changes](ConfigurationFile& file) {
        MarkLines lines(file);
        for (const auto& [entry, mark] : changes)
            lines.say(entry, mark);
    });
}

} // namespace kestro
