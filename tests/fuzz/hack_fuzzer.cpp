#include "Target.h"
#include "host/hacks/HackCatalog.h"

using namespace kestro;

/// The input is xscreensaver's description of a hack.
void kestro::tryInput(std::string_view input)
{
    const auto hack = readHackDescription(QByteArray(input.data(), qsizetype(input.size())));
    if (!hack) return;
    expect(!hack->name.isEmpty() && !hack->name.contains(u'/'), "a hack has the name of a program");
    expect(hack->name != u"kestro", "Kestro does not run itself");
    expect(!hack->label.isEmpty(), "a hack has a name for people");
    for (const QString& word : hack->hack.arguments)
        expect(word != u"--root" && word != u"-root", "a hack is not told to draw on the screen");
}
