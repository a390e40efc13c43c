#include "host/doctor/Examinations.h"
#include "platform/base/ShownURL.h"
#include "platform/network/CurlFetch.h"
#include "trailers/TrailerCont.h"

#include <QFileInfo>
#include <QLocale>
#include <QUrl>

namespace kestro {

namespace {

constexpr std::chrono::milliseconds longest{8000};

/// `areAll`: nothing else can be played.
Finding record(bool areAll)
{
    const TrailerList& list = TrailerCont::sharedController().list();
    const QFileInfo file(list.file().path());
    if (list.count() > 0)
        return fine(QStringLiteral("%1 trailers on record, of %2")
                        .arg(list.count())
                        .arg(file.lastModified().toString(Qt::ISODate)));
    const QString words = QStringLiteral("no trailers on record");
    return areAll ? broken(words, QStringLiteral("kestro scan"))
                  : better(words, QStringLiteral("kestro scan"));
}

Finding reach(const QUrl& start)
{
    CurlFetch fetch({.connectSeconds = 5, .silenceSeconds = 5, .seconds = 7});
    const auto page = fetch.fetch(start);
    if (page) return fine(shownURL(start) + QStringLiteral(": answers"));
    return broken(
        QStringLiteral("%1: %2").arg(shownURL(start), page.failure().message),
        QStringLiteral("see whether the address in [trailers] of kestro.conf and the network are right"));
}

} // namespace

std::unique_ptr<Examination> trailersExamination(AutomaticEntries entries)
{
    const QUrl start(TrailerCont::sharedController().site().start);
    const QString title = QStringLiteral("Trailers");
    if (start.isEmpty()) {
        if (entries == AutomaticEntries::None) return nullptr;
        return std::make_unique<QuickExamination>(title, [entries] {
            return Findings{record(entries == AutomaticEntries::All),
                            better(QStringLiteral("no trailer site is set"),
                                   QStringLiteral("write [trailers] start= into kestro.conf"))};
        });
    }
    const Finding kept = record(entries == AutomaticEntries::All);
    return std::make_unique<SlowExamination>(title, longest, [start, kept] {
        return Findings{kept, reach(start)};
    });
}

} // namespace kestro
