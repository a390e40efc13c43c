#include "host/publish/PublishSummary.h"

#include <QRegularExpression>

namespace kestro {

namespace {

QString counted(std::size_t count, const QString& one)
{
    return QStringLiteral("%1 %2%3").arg(QString::number(count), one,
                                         count == 1 ? QString() : QStringLiteral("s"));
}

QString headline(const PublishReport& report, const QString& site)
{
    QString line = QStringLiteral("%1 with %2 in %3/trailers (")
                       .arg(counted(report.titles, QStringLiteral("title")),
                            counted(report.movies, QStringLiteral("movie")), site);
    line += QStringLiteral("%1 written, %2 removed")
                .arg(counted(std::size_t(report.written), QStringLiteral("file")))
                .arg(report.removed);
    if (!report.leftOut.empty())
        line += QStringLiteral(", %1 left out").arg(counted(report.leftOut.size(), QStringLiteral("movie")));
    return line + QStringLiteral(")\n");
}

QString widths(const PublishReport& report)
{
    QStringList each;
    for (const auto& [width, count] : report.widths)
        each += QStringLiteral("%1 (%2)").arg(width).arg(count);
    return QStringLiteral("Widths: %1\n").arg(each.join(QStringLiteral(", ")));
}

/// The width that most movies have, the widest of those.
int commonWidth(const PublishReport& report)
{
    int common = 0;
    int most = 0;
    for (const auto& [width, count] : report.widths)
        if (count >= most) {
            common = width;
            most = count;
        }
    return common;
}

} // namespace

QString shellWord(const QString& word)
{
    static const QRegularExpression plain(QStringLiteral("^[\\w/.,:@%+=-]+\\z"));
    if (plain.match(word).hasMatch()) return word;
    QString quoted = word;
    return u'\'' + quoted.replace(u'\'', QStringLiteral("'\\''")) + u'\'';
}

QString publishSummary(const PublishReport& report, const QString& site,
                       const std::optional<BaseAddress>& base)
{
    QString text = headline(report, site) + widths(report);
    if (base)
        text += QStringLiteral("Serve:  %1 at %2/\n").arg(shellWord(site), base->text);
    else
        text += QStringLiteral("Serve:  python3 -m http.server --directory %1 8000\n").arg(shellWord(site));
    const QString address = base ? base->text : QStringLiteral("http://HOST:8000");
    text += QStringLiteral("Look:   %1/trailers/\n").arg(address);
    if (base && !base->isFollowed())
        return text +
               QStringLiteral("Kestro scans a site only where its path begins with /trailers: serve it at a "
                              "server's root to have it scanned\n");
    text += QStringLiteral("Scan:   kestro scan --start %1/trailers/\n").arg(shellWord(address));
    text += QStringLiteral("Play:   auto://LatestTrailers/6/%1 in the playlist\n").arg(commonWidth(report));
    return text;
}

} // namespace kestro
