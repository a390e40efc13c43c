#include "Target.h"
#include "host/xscreensaver/XscreensaverFile.h"

using namespace kestro;

/// The input is the settings file of xscreensaver.
void kestro::tryInput(std::string_view input)
{
    const QByteArray text(input.data(), qsizetype(input.size()));
    XscreensaverFile file(text);
    expect(file.text() == text, "every byte stays");

    XscreensaverFile added(text);
    added.add("kestro --root");
    expect(added.isListed(), "what was added is in the list");
    if (file.isListed()) expect(added.text() == text, "nothing is added twice");
    expect(XscreensaverFile(added.text()).isListed(), "and is read back");

    XscreensaverFile removed(added.text());
    removed.remove();
    expect(!removed.isListed(), "what was removed is not in the list");
    const QByteArray without = removed.text();
    removed.remove();
    expect(removed.text() == without, "nothing is removed twice");
}
