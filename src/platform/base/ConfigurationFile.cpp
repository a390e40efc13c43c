#include "platform/base/ConfigurationFile.h"

#include "platform/base/FileReplacement.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/base/RegularFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace kestro {

namespace {

const QString yes = QStringLiteral("yes");
const QString no = QStringLiteral("no");

constexpr qint64 largestFile = 1024 * 1024; // bytes

QString unquoted(const QString& value)
{
    const bool isQuoted = value.size() >= 2 && value.startsWith(u'"') && value.endsWith(u'"');
    return isQuoted ? value.mid(1, value.size() - 2) : value;
}

bool isComment(const QString& line)
{
    return line.isEmpty() || line.startsWith(u'#') || line.startsWith(u';');
}

} // namespace

ConfigurationFile::ConfigurationFile(const QByteArray& text, QString path)
    : m_path(std::move(path))
    , m_lines(text.split('\n'))
{
    read();
    const auto isUnderstood = [](const QString& line) {
        return isComment(line) || line.indexOf(u'=') > 0 || (line.startsWith(u'[') && line.endsWith(u']'));
    };
    for (qsizetype line = 0; line < m_lines.size(); ++line)
        if (!isUnderstood(QString::fromUtf8(m_lines[line]).trimmed()))
            warn(line, QStringLiteral("no \"key=value\""));
}

ConfigurationFile ConfigurationFile::at(const QString& path)
{
    if (!QFile::exists(path)) return {{}, path};
    if (const auto text = readRegularFile(path, largestFile)) return {text.value(), path};
    logLine(QStringLiteral("Cannot read %1.").arg(path));
    ConfigurationFile unknown({}, path);
    unknown.m_isKnown = false;
    return unknown;
}

ConfigurationFile ConfigurationFile::ofUser()
{
    return at(configurationFile());
}

void ConfigurationFile::read()
{
    m_entries.clear();
    m_sections.clear();
    m_doubted.clear();
    QString section;
    for (qsizetype number = 0; number < m_lines.size(); ++number) {
        const QString line = QString::fromUtf8(m_lines[number]).trimmed();
        if (isComment(line)) continue;
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            section = line.mid(1, line.size() - 2).trimmed();
            m_sections.append({section, {}, {}, number});
        } else if (const auto equals = line.indexOf(u'='); equals > 0) {
            m_entries.append(
                {section, line.left(equals).trimmed(), unquoted(line.mid(equals + 1).trimmed()), number});
        }
    }
}

const ConfigurationFile::Entry* ConfigurationFile::find(const QString& section, const QString& key) const
{
    const auto found = std::find_if(m_entries.rbegin(), m_entries.rend(), [&](const Entry& entry) {
        return entry.section == section && entry.key == key;
    });
    return found == m_entries.rend() ? nullptr : &*found;
}

std::optional<QString> ConfigurationFile::value(const QString& section, const QString& key) const
{
    const Entry* const found = find(section, key);
    return found == nullptr ? std::nullopt : std::optional(found->value);
}

bool ConfigurationFile::isYes(const QString& section, const QString& key) const
{
    const auto text = value(section, key);
    if (text && *text != yes && *text != no)
        warnAbout(section, key, QStringLiteral("\"%1\" is neither yes nor no").arg(*text));
    return text == yes;
}

QStringList ConfigurationFile::keys(const QString& section) const
{
    QStringList keys;
    for (const Entry& entry : m_entries)
        if (entry.section == section && !keys.contains(entry.key)) keys.append(entry.key);
    return keys;
}

void ConfigurationFile::warnAboutUnknown(const QString& section, const QStringList& known) const
{
    for (const Entry& entry : m_entries)
        if (entry.section == section && !known.contains(entry.key))
            warn(entry.line, QStringLiteral("unknown key \"%1\"").arg(entry.key));
}

void ConfigurationFile::warnAbout(const QString& section, const QString& key, const QString& what) const
{
    const Entry* const found = find(section, key);
    if (found == nullptr) return;
    m_doubted.insert(found->line);
    warn(found->line, what);
}

bool ConfigurationFile::isDoubted(const QString& section, const QString& key) const
{
    const Entry* const found = find(section, key);
    return found != nullptr && m_doubted.contains(found->line);
}

QString ConfigurationFile::placeOf(const QString& section, const QString& key) const
{
    const Entry* const found = find(section, key);
    return found == nullptr ? QString() : QStringLiteral("%1:%2").arg(m_path).arg(found->line + 1);
}

/// The line after the last one of a section that says something; nothing stands there that belongs to the
/// next.
qsizetype ConfigurationFile::endOf(const QString& section) const
{
    qsizetype end = -1;
    for (const Entry& header : m_sections)
        if (header.section == section) end = header.line + 1;
    for (const Entry& entry : m_entries)
        if (entry.section == section) end = std::max(end, entry.line + 1);
    return end;
}

void ConfigurationFile::set(const QString& section, const QString& key, const QString& value)
{
    const QByteArray line = (key + u'=' + value).toUtf8();
    if (const Entry* const found = find(section, key)) {
        m_lines[found->line] = line;
    } else if (const qsizetype end = endOf(section); end >= 0) {
        m_lines.insert(end, line);
    } else {
        if (m_lines.back().trimmed().isEmpty()) m_lines.removeLast();
        if (!m_lines.isEmpty()) m_lines.append(QByteArray());
        m_lines += QList<QByteArray>{'[' + section.toUtf8() + ']', line, QByteArray()};
    }
    if (!m_lines.back().isEmpty()) m_lines.append(QByteArray()); // the file ends with a line end
    read();
}

void ConfigurationFile::remove(const QString& section, const QString& key)
{
    for (auto entry = m_entries.crbegin(); entry != m_entries.crend(); ++entry)
        if (entry->section == section && entry->key == key) m_lines.removeAt(entry->line);
    read();
}

void ConfigurationFile::warn(qsizetype line, const QString& what) const
{
    logLine(QStringLiteral("%1, line %2: %3.").arg(m_path).arg(line + 1).arg(what));
}

Result<void> changeConfiguration(const QString& path, const std::function<void(ConfigurationFile&)>& change)
{
    ConfigurationFile file = ConfigurationFile::at(path);
    if (!file.isKnown()) return Error{QStringLiteral("%1 cannot be read, so it is left as it is").arg(path)};
    change(file);
    QDir().mkpath(QFileInfo(path).path());
    const auto written = replaceFile(path, file.text());
    if (!written) return Error{QStringLiteral("Cannot write %1: %2").arg(path, written.error())};
    return {};
}

QString configurationFolder()
{
    const QString other = qEnvironmentVariable("XDG_CONFIG_HOME");
    const bool isElsewhere = qEnvironmentVariable("KESTRO_HOME").isEmpty() && QDir::isAbsolutePath(other);
    return isElsewhere ? QDir::cleanPath(other) : homeFolder() + QStringLiteral("/.config");
}

QString configurationFile()
{
    return configurationFolder() + QStringLiteral("/kestro/kestro.conf");
}

} // namespace kestro
