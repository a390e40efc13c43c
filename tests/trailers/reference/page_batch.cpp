#include "host/commands/PageReport.h"
#include "trailers/LinkResolver.h"
#include "trailers/PageBase.h"

#include <QDataStream>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QMap>
#include <QTextStream>

// Reads many pages in one go for test_page_reference.py: from the file that is named first, written as
// QDataStream reads it, for each page its base, the site's host, its feeds (URL and text, in turn) and its
// text. Prints what the parser makes of each, one line of JSON a page; of each link also whether it would be
// followed, those of odd length having been passed.

namespace {

QJsonObject reportOf(const QByteArray& baseText, const QByteArray& host, const QList<QByteArray>& feeds,
                     const QByteArray& page)
{
    using namespace kestro;
    const auto base = PageBase::from(baseText.toStdString());
    if (!base) return {};
    QMap<QByteArray, QByteArray> texts;
    for (qsizetype i = 0; i + 1 < feeds.size(); i += 2)
        texts.insert(feeds[i].toLower(), feeds[i + 1]);
    const PageParser parser([&](const QUrl& feed) { return texts.value(feed.toEncoded().toLower()); },
                            QStringLiteral("2008/03/14"), [] { return true; });
    const std::string_view text(page.data(), std::size_t(page.size()));
    const auto links = parser.linkListFromStringBase(text, *base);
    QJsonObject report = pageReport(links, parser.movieListFromStringBase(text, *base));
    QJsonArray followed;
    const CrawledSite site{host.toStdString()};
    for (const std::string& link : links)
        followed.append(site.isValidURL(link, [](auto url) { return url.size() % 2 == 1; }));
    report.insert(QStringLiteral("followed"), followed);
    return report;
}

} // namespace

int main(int argc, char** argv)
{
    QFile file(argc > 1 ? QFile::decodeName(argv[1]) : QString());
    if (!file.open(QIODevice::ReadOnly)) return 1;
    QDataStream stream(&file);
    QTextStream out(stdout);
    while (!stream.atEnd()) {
        QByteArray base;
        QByteArray host;
        QList<QByteArray> feeds;
        QByteArray page;
        stream >> base >> host >> feeds >> page;
        if (stream.status() != QDataStream::Ok) return 1;
        out << QJsonDocument(reportOf(base, host, feeds, page)).toJson(QJsonDocument::Compact) << '\n';
    }
    return 0;
}
