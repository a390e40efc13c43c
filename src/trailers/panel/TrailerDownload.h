#pragma once

#include "platform/network/Fetch.h"

#include <QByteArray>
#include <QCoreApplication>

#include <memory>
#include <optional>

class QProgressDialog;
class QUrl;
class QWidget;

namespace kestro {

/// Brings the contents of one URL while a person waits in front of a progress window, which can be cancelled.
/// Lives on the stack of who saves a trailer. Main thread; the fetch works on one of its own.
/// Tested by PanelSaveTest.
class TrailerDownload final {
    Q_DECLARE_TR_FUNCTIONS(kestro::TrailerDownload)

public:
    explicit TrailerDownload(std::unique_ptr<Fetch> fetch);
    ~TrailerDownload();
    TrailerDownload(const TrailerDownload&) = delete;
    TrailerDownload& operator=(const TrailerDownload&) = delete;

    /// The bytes; nothing when the fetch fails, which is logged, or is cancelled. Events are handled
    /// meanwhile.
    [[nodiscard]] std::optional<QByteArray> run(const QUrl& url, QWidget* parent);

    /// A fetch for whole movies.
    [[nodiscard]] static std::unique_ptr<Fetch> movieFetch();

private:
    [[nodiscard]] FetchResult fetchBehind(QProgressDialog& progress, const QUrl& url);

    std::unique_ptr<Fetch> m_fetch;
};

} // namespace kestro
