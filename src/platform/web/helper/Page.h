#pragma once

#include "platform/web/WebMessage.h"
#include "platform/web/helper/FrameWriter.h"
#include "platform/web/helper/PagePicture.h"
#include "platform/web/helper/PageRules.h"
#include "platform/web/helper/RuffleScheme.h"
#include "platform/web/helper/SiteScheme.h"

#include <QObject>
#include <QTimer>
#include <QUrl>

#include <functional>
#include <memory>

class QQmlComponent;
class QQuickItem;
class QQuickWebEngineProfile;

namespace kestro {

/// One page of the saver: loads its address, in the Flash player where that is an SWF by its first bytes, and
/// sends its pictures. What is on the net the saver fetches for it. A page that fails, crashes or hangs is
/// black from then on, and the saver is told once. It has a browser profile of its own, in memory alone, that
/// ends with it. Owned by Pages; main thread. Tested by test_web_confinement.
class Page final : public QObject {
    Q_OBJECT

public:
    /// What pages share; outlives them.
    struct Surroundings {
        QQmlComponent& view;
        QString ruffleFolder;
        std::function<bool(const WebMessage&)> send;
    };

    Page(quint32 number, const Surroundings& surroundings);
    ~Page() override;

    /// The saver's words.
    void loadMovie(const QUrl& address);
    void loadPage(const QUrl& address);
    void fetched(const WebMessage& message);
    void resize(WebMessage message);
    void setMuted(bool muted);
    void release(quint32 generation, int slot);

    // for Page.qml
    Q_INVOKABLE bool mayNavigate(const QUrl& url);
    Q_INVOKABLE void loadFailed(const QString& reason);
    Q_INVOKABLE void loadSucceeded();
    Q_INVOKABLE void titleSet(const QString& title);
    /// The page's own address led to something that the browser does not show.
    Q_INVOKABLE void cameAsDownload(const QString& type);
    Q_INVOKABLE void crashed();
    Q_INVOKABLE void answered(const QString& address);

private:
    void open(PageRules::Content content, const QUrl& url);
    void showView();
    void load(const QUrl& address, bool isSwfAlone);
    void loadFile(const QUrl& url, bool isSwfAlone);
    void loadFromSite(const QUrl& url, bool isSwfAlone);
    void askSaver(quint32 request, const QUrl& url);
    void playSwf(const QUrl& url);
    /// Shows what is at `url`, which the browser knows as `address`.
    void showPage(const QUrl& url, const QUrl& address);
    void fail(const QString& reason);
    void check();
    void endHungRenderer();
    void drawSoon();
    void draw();
    [[nodiscard]] WebMessage message(WebMessage::Kind kind) const;

    const quint32 m_number;
    const Surroundings m_surroundings;
    PageRules m_rules;
    RuffleScheme m_ruffle;
    SiteScheme m_sites;
    std::unique_ptr<QQuickWebEngineProfile> m_profile;
    std::unique_ptr<QQuickItem> m_view; ///< null before the first load, and after a failure
    PagePicture m_picture;
    FrameWriter m_writer;
    quint32 m_generation = 0; ///< of the memory that the writer has
    QTimer m_drawTimer;
    QTimer m_checks;
    bool m_isDrawWanted = false;
    bool m_isMuted = true;
    bool m_isShown = false; ///< there is something to see
    bool m_isFailed = false;
    bool m_isPlayer = false; ///< the player's page is under way
    int m_unanswered = 0;    ///< questions that the page did not answer
    int m_turnsUnshown = 0;  ///< checks in which there was nothing to see
    float m_zoom = 1;
};

} // namespace kestro
