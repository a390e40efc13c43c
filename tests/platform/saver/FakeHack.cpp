// A hack for tests: fills the window that it is handed with one colour, again after each change of its size.
//
// usage: fake_hack [--colour RRGGBB] [--log FILE] [--stubborn] [--flee] [--then exit|crash] --window-id ID
//
// --log appends a line "pid group niceness window" for itself, and one with the pid of each child. A USR1
// draws a white square of ten pixels in the upper left corner. --stubborn ignores TERM; --flee starts a
// stubborn child in a session of its own. --then ends it after the first picture.

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <memory>
#include <poll.h>
#include <string>
#include <sys/resource.h>
#include <sys/signalfd.h>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

struct Options {
    std::uint32_t colour = 0xff0000;
    std::string log;
    bool isStubborn = false;
    bool flees = false;
    bool reads = false;
    std::string then;
    std::uint32_t window = 0;
};

Options optionsFrom(int argc, char** argv)
{
    Options options;
    for (int i = 1; i < argc; ++i) {
        const std::string word = argv[i];
        const char* const value = i + 1 < argc ? argv[i + 1] : "";
        if (word == "--stubborn") options.isStubborn = true;
        if (word == "--flee") options.flees = true;
        if (word == "--read") options.reads = true;
        if (word == "--colour") options.colour = static_cast<std::uint32_t>(std::strtoul(value, nullptr, 16));
        if (word == "--log") options.log = value;
        if (word == "--then") options.then = value;
        if (word == "--window-id")
            options.window = static_cast<std::uint32_t>(std::strtoul(value, nullptr, 0));
    }
    return options;
}

void flee(const std::string& log)
{
    const pid_t child = fork();
    if (child != 0) {
        std::ofstream(log, std::ios::app) << child << '\n';
        return;
    }
    setsid();
    std::signal(SIGTERM, SIG_IGN);
    for (;;)
        pause();
}

void fill(xcb_connection_t* connection, std::uint32_t window, std::uint32_t colour, xcb_rectangle_t part)
{
    const xcb_gcontext_t context = xcb_generate_id(connection);
    xcb_create_gc(connection, context, window, XCB_GC_FOREGROUND, &colour);
    xcb_poly_fill_rectangle(connection, window, context, 1, &part);
    xcb_free_gc(connection, context);
    // Answers come in order: what was drawn is drawn.
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

int readPixels(xcb_connection_t* connection, std::uint32_t window)
{
    const Owned<xcb_get_geometry_reply_t> geometry(
        xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr), &std::free);
    if (!geometry) return EXIT_FAILURE;
    const auto cookie = xcb_get_image(connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, geometry->width,
                                      geometry->height, ~0U);
    const Owned<xcb_get_image_reply_t> image(xcb_get_image_reply(connection, cookie, nullptr), &std::free);
    if (!image) return EXIT_FAILURE;
    const std::uint8_t* const pixels = xcb_get_image_data(image.get());
    for (int i = 0; i < geometry->width * geometry->height; ++i)
        for (const int part : {2, 1, 0})
            std::cout.put(static_cast<char>(pixels[4 * i + part]));
    xcb_disconnect(connection);
    return std::cout.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

constexpr xcb_rectangle_t everything{0, 0, 4000, 4000};
constexpr xcb_rectangle_t square{0, 0, 10, 10};

[[noreturn]] void run(const Options& options, xcb_connection_t* connection, int signals)
{
    for (;;) {
        while (xcb_generic_event_t* const event = xcb_poll_for_event(connection)) {
            if (event->response_type == XCB_CONFIGURE_NOTIFY)
                fill(connection, options.window, options.colour, everything);
            std::free(event);
        }
        if (xcb_connection_has_error(connection) != 0) std::exit(EXIT_FAILURE);
        pollfd waits[] = {{xcb_get_file_descriptor(connection), POLLIN, 0}, {signals, POLLIN, 0}};
        poll(waits, 2, -1);
        signalfd_siginfo info{};
        if (read(signals, &info, sizeof info) == sizeof info)
            fill(connection, options.window, 0xffffff, square);
    }
}

} // namespace

int main(int argc, char** argv)
{
    const Options options = optionsFrom(argc, argv);
    if (options.reads) return readPixels(xcb_connect(nullptr, nullptr), options.window);
    if (options.isStubborn) std::signal(SIGTERM, SIG_IGN);
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGUSR1);
    sigprocmask(SIG_BLOCK, &set, nullptr);
    const int signals = signalfd(-1, &set, SFD_NONBLOCK);
    if (options.flees) flee(options.log);
    std::ofstream(options.log, std::ios::app)
        << getpid() << ' ' << getpgrp() << ' ' << getpriority(PRIO_PROCESS, 0) << ' '
        << std::getenv("XSCREENSAVER_WINDOW") << '\n';
    xcb_connection_t* const connection = xcb_connect(nullptr, nullptr);
    const std::uint32_t events = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(connection, options.window, XCB_CW_EVENT_MASK, &events);
    fill(connection, options.window, options.colour, everything);
    if (options.then == "exit") {
        xcb_disconnect(connection);
        return EXIT_SUCCESS;
    }
    if (options.then == "crash") std::abort();
    run(options, connection, signals);
}
