#include "host/commands/PageReport.h"

#include <QJsonArray>

namespace kestro {

namespace {

QJsonObject movieReport(const TrailerRecord& record)
{
    QJsonObject report = {{QStringLiteral("URL"), record.url}};
    if (record.size) report.insert(QStringLiteral("Size"), *record.size);
    if (record.date) report.insert(QStringLiteral("Date"), *record.date);
    if (record.ac) report.insert(QStringLiteral("AC"), QStringLiteral("Y"));
    return report;
}

} // namespace

QJsonObject pageReport(const PageParser::Links& links, const std::vector<TrailerRecord>& movies)
{
    QJsonArray linkList;
    for (const std::string& link : links)
        linkList.append(QString::fromStdString(link));
    QJsonArray movieList;
    for (const TrailerRecord& movie : movies)
        movieList.append(movieReport(movie));
    return {{QStringLiteral("links"), linkList}, {QStringLiteral("movies"), movieList}};
}

} // namespace kestro
