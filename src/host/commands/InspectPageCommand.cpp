#include "host/commands/Commands.h"
#include "host/commands/PageReport.h"
#include "host/commands/Program.h"
#include "platform/base/Bounds.h"
#include "platform/base/Clock.h"
#include "platform/base/Reasons.h"
#include "platform/network/CurlFetch.h"
#include "trailers/PageBase.h"
#include "trailers/TrailerList.h"

#include <QFile>
#include <QJsonDocument>
#include <QUrl>

namespace kestro {

namespace {

const QString baseOption = QStringLiteral("base");

Result<QByteArray> pageIn(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return Error{file.errorString()};
    constexpr qint64 most = Bounds::unpackedPageBytes;
    QByteArray page = file.read(most + 1);
    if (file.error() != QFileDevice::NoError) return Error{file.errorString()};
    if (page.size() > most) return Error{tooLarge(most)};
    return page;
}

int inspectPage(const Arguments& arguments)
{
    const QByteArray baseText = arguments.text(baseOption).value_or(QString()).toUtf8();
    const auto base = PageBase::from(baseText.toStdString());
    if (!base || !QUrl::fromEncoded(baseText).isValid()) {
        printError(
            QStringLiteral("--base needs a URL with a scheme and a host (see kestro inspect-page --help)"));
        return ExitWrongUsage;
    }
    const QString path = arguments.operands().front();
    const auto page = pageIn(path);
    if (!page) {
        printError(QStringLiteral("Cannot read %1: %2").arg(path, page.error()));
        return ExitFailure;
    }
    CurlFetch fetch;
    const PageParser parser(
        [&](const QUrl& feed) {
            auto text = fetch.fetch(feed);
            return text ? std::move(text.value()) : QByteArray();
        },
        curDateStr(SystemClock()), [] { return true; });
    const std::string_view text(page.value().data(), std::size_t(page.value().size()));
    const auto links = parser.linkListFromStringBase(text, *base);
    return print(QJsonDocument(pageReport(links, parser.movieListFromStringBase(text, *base))).toJson());
}

} // namespace

Command inspectPageCommand()
{
    Syntax syntax;
    syntax.name = QStringLiteral("inspect-page");
    syntax.summary = QStringLiteral("Print the links and movies of a page, as the crawler reads it, as JSON");
    syntax.operands = {{QStringLiteral("FILE"), QStringLiteral("the page")}};
    syntax.options = {
        {baseOption, QStringLiteral("URL"),
         QStringLiteral("what its links are relative to: the folder it is in, with \"/\" at its end"), true}};
    return {syntax, inspectPage};
}

} // namespace kestro
