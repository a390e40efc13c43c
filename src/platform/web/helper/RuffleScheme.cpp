#include "platform/web/helper/RuffleScheme.h"

#include <QFile>
#include <QFileInfo>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include <utility>

namespace kestro {

const QString RuffleScheme::name = QStringLiteral("kestro-ruffle");

namespace {

const QString playerHost = QStringLiteral("player");
const QString movieHost = QStringLiteral("movie");
const QString ownFiles = QStringLiteral(":/web/");
const QString playerScript = QStringLiteral("player.js");

QUrl inScheme(const QString& host, const QString& path)
{
    QUrl url;
    url.setScheme(RuffleScheme::name);
    url.setHost(host);
    url.setPath(path);
    return url;
}

QByteArray ownFile(const QString& file)
{
    QFile source(ownFiles + file);
    return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray();
}

QByteArray typeOf(const QString& file)
{
    if (file.endsWith(u".js")) return "text/javascript";
    if (file.endsWith(u".wasm")) return "application/wasm";
    return "application/octet-stream";
}

} // namespace

void RuffleScheme::registerName()
{
    QWebEngineUrlScheme scheme(name.toLatin1());
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme | QWebEngineUrlScheme::CorsEnabled);
    QWebEngineUrlScheme::registerScheme(scheme);
}

RuffleScheme::RuffleScheme(QString folder)
    : m_folder(std::move(folder))
{
}

QUrl RuffleScheme::pageAddress(const QUrl& movie)
{
    if (movie.isLocalFile()) return inScheme(playerHost, QStringLiteral("/"));
    return movie.adjusted(QUrl::RemoveFilename | QUrl::RemoveQuery | QUrl::RemoveFragment |
                          QUrl::RemoveUserInfo);
}

QByteArray RuffleScheme::playerPage(const QUrl& movie)
{
    const bool isFile = movie.isLocalFile();
    m_movieFile = isFile ? movie.toLocalFile() : QString();
    const QUrl address = isFile ? inScheme(movieHost, u'/' + movie.fileName())
                                : movie.adjusted(QUrl::RemoveUserInfo | QUrl::RemoveFragment);
    QByteArray page = ownFile(QStringLiteral("player.html"));
    page.replace("@MOVIE@", QString::fromUtf8(address.toEncoded()).toHtmlEscaped().toUtf8());
    return page;
}

QString RuffleScheme::fileFor(const QUrl& url) const
{
    if (url.host() == movieHost) return m_movieFile;
    const QString file = url.path().mid(1);
    if (url.host() != playerHost || file.contains(u'/') || file.startsWith(u'.')) return {};
    return file == playerScript ? ownFiles + file : m_folder + u'/' + file;
}

void RuffleScheme::requestStarted(QWebEngineUrlRequestJob* job)
{
    const QString path = fileFor(job->requestUrl());
    auto* const file = new QFile(path, job);
    if (path.isEmpty() || job->requestMethod() != "GET" || !QFileInfo(path).isFile() ||
        !file->open(QIODevice::ReadOnly)) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
        return;
    }
    job->reply(typeOf(path), file);
}

} // namespace kestro
