// save_probe KIND FOLDER NUMBER [COUNT]: saves one of the files that Kestro keeps, by the code that saves it
// for the user, with contents that tell by NUMBER which saving they are of, COUNT times with one number after
// the other. KIND: settings, resume, trailers, xscreensaver, site.

#include "host/xscreensaver/XscreensaverList.h"
#include "publish/SiteFolder.h"
#include "settings/SettingsStore.h"
#include "trailers/TrailerListFile.h"

#include <QCoreApplication>

#include <cstdio>

using namespace kestro;

namespace {

/// More than is written at once.
QString longText(int number)
{
    return QString::number(number).repeated(20'000);
}

bool saveSettings(const QString& home, int number)
{
    SettingsStore store(home);
    store.setPlist({{QStringLiteral("Number"), number}, {QStringLiteral("Text"), longText(number)}});
    return store.writePlist();
}

bool saveResumePoint(const QString& home, int number)
{
    SettingsStore store(home);
    return store.setDefaults({{QStringLiteral("LastMovie"), QStringLiteral("%1.mov").arg(number)},
                              {QStringLiteral("LastPos"), QString::number(number)}});
}

bool saveTrailers(const QString& home, int number)
{
    TrailerListContents contents;
    for (int i = 0; i < 300; ++i) {
        TrailerRecord record;
        record.url = QStringLiteral("http://h/%1/%2.mov").arg(i).arg(number);
        record.size = QStringLiteral("480 x 204");
        record.date = QStringLiteral("2008/03/14");
        contents.trailers.insert(record.url, record);
    }
    contents.hasTrailers = true;
    return TrailerListFile(home, QString()).save(contents);
}

/// Odd numbers put Kestro in, even ones take it out.
bool saveXscreensaver(const QString& home, int number)
{
    const XscreensaverList list(home + QStringLiteral("/.xscreensaver"), QStringLiteral("/opt/bin/kestro"));
    return bool(number % 2 == 1 ? list.add() : list.remove());
}

bool saveSite(const QString& folder, int number)
{
    SiteFolder site(folder);
    const QString file = QStringLiteral("page.html");
    const bool isWritten = site.open() && site.claim({file}) && site.write(file, longText(number).toUtf8());
    SourceMovie movie;
    movie.path = QStringLiteral("%1.mov").arg(number);
    movie.bytes = number;
    return isWritten && site.finish({movie});
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList words = QCoreApplication::arguments();
    if (words.size() < 4) return 2;
    const int first = words[3].toInt();
    const int count = words.size() > 4 ? words[4].toInt() : 1;
    const std::pair<const char*, bool (*)(const QString&, int)> kinds[] = {{"settings", saveSettings},
                                                                           {"resume", saveResumePoint},
                                                                           {"trailers", saveTrailers},
                                                                           {"xscreensaver", saveXscreensaver},
                                                                           {"site", saveSite}};
    for (const auto& [name, save] : kinds)
        if (words[1] == QLatin1String(name)) {
            for (int number = first; number < first + count; ++number)
                if (!save(words[2], number)) return 1;
            return 0;
        }
    return 2;
}
