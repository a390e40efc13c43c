#include "platform/session/GamePad.h"

#include "platform/session/SessionFact.h"

#include <QFile>

#include <array>
#include <bitset>
#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <linux/input.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace kestro {

namespace {

/// A set of the kernel's codes, one bit each, as its calls have them.
template <std::size_t count>
struct Codes {
    std::array<unsigned char, (count + 7) / 8> bits{};

    [[nodiscard]] bool has(unsigned code) const { return (bits[code / 8] >> (code % 8) & 1) != 0; }
    void add(unsigned code) { bits[code / 8] |= static_cast<unsigned char>(1U << (code % 8)); }
};

bool isHat(unsigned code)
{
    return code >= ABS_HAT0X && code <= ABS_HAT3Y;
}

bool isPad(int descriptor)
{
    Codes<KEY_CNT> keys;
    Codes<ABS_CNT> axes;
    if (ioctl(descriptor, EVIOCGBIT(EV_KEY, sizeof keys.bits), keys.bits.data()) < 0) return false;
    if (ioctl(descriptor, EVIOCGBIT(EV_ABS, sizeof axes.bits), axes.bits.data()) < 0) return false;
    return axes.has(ABS_X) && (keys.has(BTN_GAMEPAD) || keys.has(BTN_JOYSTICK));
}

template <std::size_t count>
void wantOnly(int descriptor, unsigned type, Codes<count>& codes)
{
    const input_mask mask{type, static_cast<std::uint32_t>(codes.bits.size()),
                          reinterpret_cast<std::uintptr_t>(codes.bits.data())};
    ioctl(descriptor, EVIOCSMASK, &mask); // an old kernel keeps them all: they are passed over
}

/// Has the kernel keep nothing but hats of what axes do: the rest would push the presses out.
void wantHatsOnly(int descriptor)
{
    Codes<ABS_CNT> hats;
    for (unsigned code = ABS_HAT0X; code <= ABS_HAT3Y; ++code)
        hats.add(code);
    wantOnly(descriptor, EV_ABS, hats);
    Codes<MSC_CNT> none;
    wantOnly(descriptor, EV_MSC, none);
}

} // namespace

std::unique_ptr<GamePad> GamePad::open(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) return nullptr;
    auto pad = std::make_unique<GamePad>(descriptor, QString());
    int clock = CLOCK_MONOTONIC;
    if (!isPad(descriptor) || ioctl(descriptor, EVIOCSCLOCKID, &clock) < 0) return nullptr;
    wantHatsOnly(descriptor);
    std::array<char, 128> name{};
    if (ioctl(descriptor, EVIOCGNAME(name.size() - 1), name.data()) > 0)
        pad->m_name = plainWords(QString::fromUtf8(name.data()));
    return pad;
}

GamePad::GamePad(int descriptor, QString name)
    : m_descriptor(descriptor)
    , m_name(std::move(name))
{
}

GamePad::~GamePad()
{
    ::close(m_descriptor);
}

bool GamePad::look()
{
    constexpr int mostReads = 256; // a device that never runs dry is not read for ever
    for (int i = 0; i < mostReads; ++i) {
        std::array<input_event, 64> events{};
        const ssize_t bytes = ::read(m_descriptor, events.data(), sizeof events);
        if (bytes < 0 && errno == EINTR) continue;
        if (bytes < 0) return errno == EAGAIN;
        if (bytes == 0) return false;
        for (std::size_t event = 0; event < static_cast<std::size_t>(bytes) / sizeof(input_event); ++event) {
            const input_event& told = events[event];
            if (told.type == EV_KEY || (told.type == EV_ABS && isHat(told.code)))
                m_lastMoved = static_cast<double>(told.input_event_sec) +
                              static_cast<double>(told.input_event_usec) / 1e6;
        }
    }
    return true;
}

} // namespace kestro
