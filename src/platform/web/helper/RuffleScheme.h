#pragma once

#include <QString>
#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

class QIODevice;

namespace kestro {

/// Serves one page the Flash player, Ruffle, and the one local movie that it plays, and nothing else. Owned
/// by its page; main thread. Tested by test_web_confinement.
class RuffleScheme final : public QWebEngineUrlSchemeHandler {
public:
    static const QString name;

    /// Makes the scheme known to the browser; once, before there is an application object.
    static void registerName();

    /// `folder` is where Ruffle lies.
    explicit RuffleScheme(QString folder);

    /// The page that plays `movie`, for the address that answers from pageAddress().
    [[nodiscard]] QByteArray playerPage(const QUrl& movie);
    /// Where the page stands, which decides what the movie is taken to come from.
    [[nodiscard]] static QUrl pageAddress(const QUrl& movie);

    void requestStarted(QWebEngineUrlRequestJob* job) override;

private:
    [[nodiscard]] QString fileFor(const QUrl& url) const;

    const QString m_folder;
    QString m_movieFile; ///< empty unless the movie is a local file
};

} // namespace kestro
