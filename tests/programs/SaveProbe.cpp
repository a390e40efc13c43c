// save_probe KIND FOLDER NUMBER [COUNT]: saves one of the files that Kestro keeps, by the code that saves it
// for the user. KIND: settings, resume, trailers, xscreensaver.

#include "programs/SaveProbe.h"

#include "host/xscreensaver/XscreensaverList.h"
#include "settings/SettingsStore.h"
#include "trailers/TrailerListFile.h"

using namespace kestro;

namespace {

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

} // namespace

int main(int argc, char** argv)
{
    return saveOneOf({{"settings", saveSettings},
                      {"resume", saveResumePoint},
                      {"trailers", saveTrailers},
                      {"xscreensaver", saveXscreensaver}},
                     argc, argv);
}
