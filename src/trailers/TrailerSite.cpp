#include "trailers/TrailerSite.h"

#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/base/RegularFile.h"
#include "trailers/URLText.h"

#include <QDir>
#include <QFile>

namespace kestro {

namespace {

constexpr qint64 largestFile = 1024 * 1024; // bytes

const QString trailersSection = QStringLiteral("trailers");

/// Reads the lines of one configuration file.
class SiteReader final {
public:
    explicit SiteReader(QString path)
        : m_path(std::move(path))
    {
    }

    void readLine(const QString& line)
    {
        ++m_number;
        if (line.isEmpty() || line.startsWith(u'#') || line.startsWith(u';')) return;
        if (line.startsWith(u'[') && line.endsWith(u']')) {
            m_section = line.mid(1, line.size() - 2).trimmed();
            return;
        }
        const auto equals = line.indexOf(u'=');
        if (equals <= 0) return complain(QStringLiteral("no \"key=value\""));
        if (m_section == trailersSection)
            set(line.left(equals).trimmed(), unquoted(line.mid(equals + 1).trimmed()));
    }

    [[nodiscard]] const TrailerSite& site() const { return m_site; }

private:
    static QString unquoted(const QString& value)
    {
        const bool isQuoted = value.size() >= 2 && value.startsWith(u'"') && value.endsWith(u'"');
        return isQuoted ? value.mid(1, value.size() - 2) : value;
    }

    void set(const QString& key, const QString& value)
    {
        if (key == u"start")
            m_site.start = value;
        else if (key == u"host")
            m_site.host = value;
        else
            complain(QStringLiteral("unknown key \"%1\"").arg(key));
    }

    void complain(const QString& what) const
    {
        logLine(QStringLiteral("%1, line %2: %3.").arg(m_path).arg(m_number).arg(what));
    }

    QString m_path;
    QString m_section;
    TrailerSite m_site;
    int m_number = 0;
};

QString configurationFolder()
{
    const QString other = qEnvironmentVariable("XDG_CONFIG_HOME");
    const bool isElsewhere = qEnvironmentVariable("KESTRO_HOME").isEmpty() && QDir::isAbsolutePath(other);
    return isElsewhere ? QDir::cleanPath(other) : homeFolder() + QStringLiteral("/.config");
}

} // namespace

std::string TrailerSite::hostFor(const std::string& startUrl) const
{
    if (!host.isEmpty()) return host.toStdString();
    const auto parts = URLText::parse(startUrl);
    return parts ? std::string(parts->hostAndPort()) : std::string();
}

QString configurationFile()
{
    return configurationFolder() + QStringLiteral("/kestro/kestro.conf");
}

TrailerSite readTrailerSite(const QByteArray& text, const QString& path)
{
    SiteReader reader(path);
    for (const QByteArray& line : text.split('\n'))
        reader.readLine(QString::fromUtf8(line).trimmed());
    return reader.site();
}

TrailerSite configuredTrailerSite()
{
    const QString path = configurationFile();
    if (!QFile::exists(path)) return {};
    const auto text = readRegularFile(path, largestFile);
    if (text) return readTrailerSite(text.value(), path);
    logLine(QStringLiteral("Cannot read %1.").arg(path));
    return {};
}

} // namespace kestro
