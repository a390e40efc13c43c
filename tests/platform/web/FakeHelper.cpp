// A web helper without a browser, for the tests of the saver's side. What it does is told by the address:
// "paint:RRGGBB" sends one picture of that colour, "pair:" pictures until no slot is free, "note:TEXT" a
// note, an address of http a request for what its fragment names, and shows green for what comes and blue for
// none, "crash:" and "hang:" what they say; the others are those of a helper in foreign hands (Hostility).
// Its first argument is the folder that it gets; told "crash" as the second, it crashes at the start.

#include "platform/web/HelperProcess.h"
#include "platform/web/Hostility.h"
#include "platform/web/SharedFrames.h"
#include "platform/web/WebChannel.h"

#include <QColor>
#include <QCoreApplication>
#include <QUrl>

#include <map>
#include <unistd.h>

using namespace kestro;

namespace {

struct FakePage {
    std::unique_ptr<SharedFrames> frames;
    quint32 generation = 0;
    QString address;
    bool isMuted = true;
    bool isMovie = false;
};

class FakeHelper {
public:
    FakeHelper()
        : m_channel(
              Descriptor(helperChannelNumber), WebSpeaker::Saver,
              [this](WebMessage message) { receive(std::move(message)); }, [] { QCoreApplication::quit(); })
    {
        answer(WebMessage::Kind::Hello, 0, {});
    }

private:
    void receive(WebMessage message)
    {
        FakePage& page = m_pages[message.view];
        if (message.kind == WebMessage::Kind::Ping) {
            message.kind = WebMessage::Kind::Pong;
            m_channel.send(message);
        }
        if (message.kind == WebMessage::Kind::Fetched)
            paint(message.view, message.flag ? "00ff00" : "0000ff", 0);
        if (message.kind == WebMessage::Kind::Mute) page.isMuted = message.flag;
        if (message.kind == WebMessage::Kind::Stop) m_pages.erase(message.view);
        if (message.kind == WebMessage::Kind::Release) paint(message.view, "00ff00", message.slot);
        if (message.kind == WebMessage::Kind::Resize) {
            page.frames = SharedFrames::adopt(std::move(message.memory), message.size);
            page.generation = message.generation;
            if (!page.address.isEmpty()) show(message.view);
        }
        if (message.kind == WebMessage::Kind::LoadMovie || message.kind == WebMessage::Kind::LoadPage) {
            page.isMovie = message.kind == WebMessage::Kind::LoadMovie;
            page.address = QString::fromUtf8(message.text);
            show(message.view);
        }
    }

    void show(quint32 number)
    {
        const QString address = m_pages[number].address;
        if (address == u"crash:") _exit(1);
        if (address == u"hang:")
            for (;;)
                pause();
        if (address.startsWith(u"note:")) answer(WebMessage::Kind::Note, number, address.mid(5).toUtf8());
        if (address.startsWith(u"paint:")) paint(number, address.mid(6), 0);
        if (address == u"kind:") paint(number, m_pages[number].isMovie ? "ff0000" : "0000ff", 0);
        if (address.startsWith(u"http:")) answer(WebMessage::Kind::Fetch, number, wished(address));
        if (beHostile(address, helperChannelNumber, number)) paint(number, "00ff00", 0);
        if (address == u"sound:") paint(number, m_pages[number].isMuted ? "ff0000" : "0000ff", 0);
        if (address != u"pair:") return;
        paint(number, "ff0000", 0);
        paint(number, "0000ff", 1);
    }

    /// What the fragment of a page's address names is asked for, else the address itself.
    static QByteArray wished(const QString& address)
    {
        const QUrl url(address);
        return url.hasFragment() ? QByteArray::fromPercentEncoding(url.fragment().toUtf8()) : url.toEncoded();
    }

    void paint(quint32 number, const QString& colour, int slot)
    {
        const FakePage& page = m_pages[number];
        if (!page.frames) return;
        page.frames->writable(slot).fill(QColor(u'#' + colour));
        WebMessage frame;
        frame.kind = WebMessage::Kind::Frame;
        frame.view = number;
        frame.generation = page.generation;
        frame.slot = slot;
        frame.damage = {{0, 0}, page.frames->size()};
        m_channel.send(frame);
    }

    void answer(WebMessage::Kind kind, quint32 view, const QByteArray& text)
    {
        WebMessage message;
        message.kind = kind;
        message.view = view;
        message.text = text;
        m_channel.send(message);
    }

    std::map<quint32, FakePage> m_pages;
    WebChannel m_channel;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc > 2 && QByteArray(argv[2]) == "crash") return 1;
    const QCoreApplication application(argc, argv);
    const FakeHelper helper;
    return QCoreApplication::exec();
}
