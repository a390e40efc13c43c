// Another program on the display, for the tests of what Kestro leaves to others. It does what it is told, a
// word or more a line on standard input, answers each line with one of its own, and writes a line besides for
// each key and button that reaches one of its windows, and for the input focus where it goes from one.
//
//   window W H X Y     opens a window that a window manager would look after   -> window ID
//   cover W H X Y      opens one that none looks after, as a locker does       -> window ID
//   frame W H X Y      opens one like it that holds one which a window manager looks after -> window ID
//   focus ID           gives a window the input focus                          -> done
//   raise ID           lays it above all others                                -> done
//   close ID           destroys it                                             -> done
//   dismiss ID         asks a window to close, as a window manager does        -> done
//   owner              who has the focus, and where it would revert to         -> owner ID REVERT
//   grab ID            grabs the keyboard and the pointer, as a locker does    -> grabbed | refused
//   ungrab             lets go of both                                         -> done

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <poll.h>
#include <sstream>
#include <string>
#include <unistd.h>
#include <xcb/xcb.h>

namespace {

template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, decltype(&std::free)>;

constexpr std::uint32_t heardEvents = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE |
                                      XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE |
                                      XCB_EVENT_MASK_FOCUS_CHANGE;

class Client final {
public:
    Client()
        : m_connection(xcb_connect(nullptr, nullptr))
        , m_screen(xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data)
    {
    }
    ~Client() { xcb_disconnect(m_connection); }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;

    int run()
    {
        pollfd waits[] = {{STDIN_FILENO, POLLIN, 0}, {xcb_get_file_descriptor(m_connection), POLLIN, 0}};
        for (std::string line; poll(waits, 2, -1) > 0;) {
            if (waits[0].revents != 0) {
                if (!std::getline(std::cin, line)) return 0;
                obey(line);
            }
            tellEvents();
            if (xcb_connection_has_error(m_connection) != 0) return 0;
        }
        return 1;
    }

private:
    void obey(const std::string& line)
    {
        std::istringstream words(line);
        std::string order;
        words >> order;
        if (order == "window" || order == "cover" || order == "frame") return open(words, order);
        if (order == "owner") return tellOwner();
        if (order == "grab") return grab(readWindow(words));
        if (order == "focus")
            xcb_set_input_focus(m_connection, XCB_INPUT_FOCUS_PARENT, readWindow(words), XCB_CURRENT_TIME);
        if (order == "raise") raise(readWindow(words));
        if (order == "close") xcb_destroy_window(m_connection, readWindow(words));
        if (order == "dismiss") dismiss(readWindow(words));
        if (order == "ungrab") {
            xcb_ungrab_keyboard(m_connection, XCB_CURRENT_TIME);
            xcb_ungrab_pointer(m_connection, XCB_CURRENT_TIME);
        }
        sync();
        tell("done");
    }

    void open(std::istream& words, const std::string& kind)
    {
        std::uint16_t width = 0, height = 0;
        std::int16_t x = 0, y = 0;
        words >> width >> height >> x >> y;
        const xcb_window_t window = xcb_generate_id(m_connection);
        const std::uint32_t values[] = {0x008000, kind == "window" ? 0U : 1U, heardEvents};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_screen->root, x, y, width, height, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, values);
        if (kind == "frame") fill(window);
        xcb_map_window(m_connection, window);
        sync();
        tell("window " + std::to_string(window));
    }

    void fill(xcb_window_t frame)
    {
        const xcb_window_t inside = xcb_generate_id(m_connection);
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, inside, frame, 0, 0, 10, 10, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual, 0, nullptr);
        const xcb_atom_t state = atom("WM_STATE");
        const std::uint32_t normal[] = {1, 0};
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, inside, state, state, 32, 2, normal);
    }

    xcb_atom_t atom(const std::string& name)
    {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
        const ReplyPtr<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(m_connection, cookie, nullptr),
                                                      &std::free);
        return reply->atom;
    }

    void dismiss(xcb_window_t window)
    {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = atom("WM_PROTOCOLS");
        message.data.data32[0] = atom("WM_DELETE_WINDOW");
        xcb_send_event(m_connection, 0, window, 0, reinterpret_cast<const char*>(&message));
    }

    void raise(xcb_window_t window)
    {
        const std::uint32_t above = XCB_STACK_MODE_ABOVE;
        xcb_configure_window(m_connection, window, XCB_CONFIG_WINDOW_STACK_MODE, &above);
    }

    void tellOwner()
    {
        const ReplyPtr<xcb_get_input_focus_reply_t> reply(
            xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr), &std::free);
        tell("owner " + std::to_string(reply->focus) + " " + std::to_string(reply->revert_to));
    }

    void grab(xcb_window_t window)
    {
        const auto keyboard = xcb_grab_keyboard(m_connection, 1, window, XCB_CURRENT_TIME,
                                                XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
        const auto pointer =
            xcb_grab_pointer(m_connection, 1, window, XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
                             XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME);
        const ReplyPtr<xcb_grab_keyboard_reply_t> first(
            xcb_grab_keyboard_reply(m_connection, keyboard, nullptr), &std::free);
        const ReplyPtr<xcb_grab_pointer_reply_t> second(
            xcb_grab_pointer_reply(m_connection, pointer, nullptr), &std::free);
        const bool isGrabbed = first && second && first->status == XCB_GRAB_STATUS_SUCCESS &&
                               second->status == XCB_GRAB_STATUS_SUCCESS;
        tell(isGrabbed ? "grabbed" : "refused");
    }

    void tellEvents()
    {
        const auto next = [this] {
            return ReplyPtr<xcb_generic_event_t>(xcb_poll_for_event(m_connection), &std::free);
        };
        for (auto event = next(); event; event = next())
            tellEvent(*event);
    }

    static void tellEvent(const xcb_generic_event_t& event)
    {
        const int type = event.response_type & ~0x80;
        if (type == XCB_FOCUS_OUT) {
            const auto& focus = reinterpret_cast<const xcb_focus_out_event_t&>(event);
            const bool hasMoved = focus.mode != XCB_NOTIFY_MODE_GRAB && focus.mode != XCB_NOTIFY_MODE_UNGRAB;
            if (hasMoved) tell("heard focus out " + std::to_string(focus.event));
        }
        const char* const names[] = {"key down", "key up", "button down", "button up"};
        const int kind = type - XCB_KEY_PRESS;
        if (kind < 0 || kind > 3) return;
        const auto& input = reinterpret_cast<const xcb_key_press_event_t&>(event);
        tell(std::string("heard ") + names[kind] + " " + std::to_string(input.detail));
    }

    static xcb_window_t readWindow(std::istream& words)
    {
        xcb_window_t window = 0;
        words >> window;
        return window;
    }

    void sync()
    {
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    static void tell(const std::string& line) { std::cout << line << std::endl; }

    xcb_connection_t* m_connection;
    const xcb_screen_t* m_screen;
};

} // namespace

int main()
{
    std::ios::sync_with_stdio(false);
    return Client().run();
}
