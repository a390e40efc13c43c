#pragma once

#include "settings/TrailerBrowser.h"
#include "settings/URLListReceiver.h"

#include <QStringList>

namespace kestro {

/// A browser of trailers that only notes what is asked of it.
class NotedBrowser final : public TrailerBrowser {
public:
    explicit NotedBrowser(QStringList& journal)
        : m_journal(journal)
    {
    }
    void showPanel(URLListReceiver&) override { m_journal.append(QStringLiteral("show")); }
    void close() override { m_journal.append(QStringLiteral("close")); }

private:
    QStringList& m_journal;
};

/// Takes no trailers.
class NoReceiver final : public URLListReceiver {
public:
    void addURLList(const QList<QUrl>&) override {}
};

} // namespace kestro
