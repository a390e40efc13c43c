// A Wayland compositor of the tests' own, which shows nothing and answers when it is told to, for the tests
// of what becomes of a saver whose compositor is slow, odd or rude. It listens at the socket that is named on
// its command line, has layers (none with "--no-layers") and xdg windows, does what it is told, a line on
// standard input, and writes a line for each thing that its client does. Outputs and surfaces have numbers,
// each kind its own, from 1.
//
//   plug W H SCALE       an output of so many pixels comes
//   unplug OUTPUT        it goes; surfaces on it are closed first
//   configure LAYER W H  answers a layer
//   close LAYER          takes a layer away
//   power OUTPUT 0|1     switches an output off or on
//
// What it writes:
//
//   ready                it listens
//   layer N output O overlay|other edges E zone Z keyboard K
//                        a layer was asked for and committed
//   window N output O    an xdg window was asked for, full screen
//   shown N W H SCALE    its picture has another size or scale than before
//   claims N             a layer wants the keyboard once more
//   gone N               it was destroyed
//   early N              it was drawn on before it was answered

#include "OddPower.h"

#include <cstdint>
#include <iostream>
#include <list>
#include <map>
#include <poll.h>
#include <sstream>
#include <string>
#include <utility>
#include <wayland-server.h>
#include <wayland-wlr-layer-shell-server.h>
#include <wayland-xdg-shell-server.h>

namespace {

struct Output {
    int number;
    int width;
    int height;
    int scale;
    wl_global* global;
};

/// A surface and what it was made to be.
struct Surface {
    int number = 0; ///< of those that have a role
    int output = 0;
    wl_resource* layer = nullptr;
    wl_resource* xdg = nullptr;
    wl_resource* toplevel = nullptr;
    std::uint32_t kind = 0, edges = 0, keyboard = 0;
    int zone = 0;
    bool isTold = false;     ///< the first commit was written
    bool isAnswered = false; ///< the client has acknowledged an answer
    wl_resource* attached = nullptr;
    int scale = 1;
    std::string shown;
    std::list<wl_resource*> frames;
};

wl_display* display = nullptr;
std::map<int, Output> outputs;
std::map<int, Surface*> surfaces;
int lastOutput = 0, lastSurface = 0;

template <typename... Words>
void tell(const Words&... words)
{
    ((std::cout << words << ' '), ...) << std::endl;
}

Surface& surfaceOf(wl_resource* resource)
{
    return *static_cast<Surface*>(wl_resource_get_user_data(resource));
}

/// Outputs and roles have their number for data.
void* dataOf(int number)
{
    return reinterpret_cast<void*>(static_cast<std::intptr_t>(number));
}

int numberOf(wl_resource* resource)
{
    if (!resource) return 0;
    return static_cast<int>(reinterpret_cast<std::intptr_t>(wl_resource_get_user_data(resource)));
}

wl_resource* make(wl_client* client, const wl_interface& interface, wl_resource* parent, std::uint32_t id,
                  const void* calls, void* data, wl_resource_destroy_func_t gone = nullptr)
{
    auto* const resource = wl_resource_create(client, &interface, wl_resource_get_version(parent), id);
    wl_resource_set_implementation(resource, calls, data, gone);
    return resource;
}

template <typename... Arguments>
void ignore(wl_client*, wl_resource*, Arguments...)
{
}

void destroy(wl_client*, wl_resource* resource)
{
    wl_resource_destroy(resource);
}

void show(Surface& surface)
{
    wl_shm_buffer* const pixels = wl_shm_buffer_get(surface.attached);
    std::ostringstream size;
    if (pixels) size << wl_shm_buffer_get_width(pixels) << ' ' << wl_shm_buffer_get_height(pixels);
    size << ' ' << surface.scale;
    if (!surface.isAnswered) tell("early", surface.number);
    if (size.str() != surface.shown) tell("shown", surface.number, size.str());
    surface.shown = size.str();
    wl_buffer_send_release(surface.attached);
    surface.attached = nullptr;
}

void tellRole(Surface& surface)
{
    const auto layer = surface.kind == ZWLR_LAYER_SHELL_V1_LAYER_OVERLAY ? "overlay" : "other";
    if (surface.layer)
        tell("layer", surface.number, "output", surface.output, layer, "edges", surface.edges, "zone",
             surface.zone, "keyboard", surface.keyboard);
    else
        tell("window", surface.number, "output", surface.output);
}

void configureWindow(Surface& surface)
{
    const Output& output = outputs.at(surface.output);
    wl_array states;
    wl_array_init(&states);
    *static_cast<std::uint32_t*>(wl_array_add(&states, sizeof(std::uint32_t))) =
        XDG_TOPLEVEL_STATE_FULLSCREEN;
    xdg_toplevel_send_configure(surface.toplevel, output.width, output.height, &states);
    wl_array_release(&states);
    xdg_surface_send_configure(surface.xdg, 1);
}

void commit(wl_client*, wl_resource* resource)
{
    Surface& surface = surfaceOf(resource);
    if (surface.number != 0 && !surface.isTold) {
        surface.isTold = true;
        tellRole(surface);
        if (surface.toplevel) configureWindow(surface);
    }
    if (surface.attached) show(surface);
    for (wl_resource* frame : std::exchange(surface.frames, {})) {
        wl_callback_send_done(frame, 0);
        wl_resource_destroy(frame);
    }
}

void attach(wl_client*, wl_resource* resource, wl_resource* buffer, int, int)
{
    surfaceOf(resource).attached = buffer;
}

void frame(wl_client* client, wl_resource* resource, std::uint32_t id)
{
    surfaceOf(resource).frames.push_back(make(client, wl_callback_interface, resource, id, nullptr, nullptr));
}

void setScale(wl_client*, wl_resource* resource, int scale)
{
    surfaceOf(resource).scale = scale;
}

const struct wl_surface_interface surfaceCalls = {destroy, attach, ignore,   frame,  ignore, ignore,
                                                  commit,  ignore, setScale, ignore, nullptr};
const struct wl_region_interface regionCalls = {destroy, ignore, ignore};

void makeSurface(wl_client* client, wl_resource* compositor, std::uint32_t id)
{
    const auto gone = [](wl_resource* resource) {
        surfaces.erase(surfaceOf(resource).number);
        delete &surfaceOf(resource);
    };
    make(client, wl_surface_interface, compositor, id, &surfaceCalls, new Surface, gone);
}

void makeRegion(wl_client* client, wl_resource* compositor, std::uint32_t id)
{
    make(client, wl_region_interface, compositor, id, &regionCalls, nullptr);
}

const struct wl_compositor_interface compositorCalls = {makeSurface, makeRegion};

void giveNumber(Surface& surface)
{
    surface.number = ++lastSurface;
    surfaces[surface.number] = &surface;
}

/// Null where the role has outlived its surface.
Surface* surfaceOfRole(wl_resource* role)
{
    const auto found = surfaces.find(numberOf(role));
    return found == surfaces.end() ? nullptr : found->second;
}

template <auto member, typename Value>
void setOnRole(wl_client*, wl_resource* role, Value value)
{
    if (Surface* const surface = surfaceOfRole(role)) surface->*member = value;
}

void setKeyboard(wl_client*, wl_resource* role, std::uint32_t keyboard)
{
    Surface* const surface = surfaceOfRole(role);
    if (!surface) return;
    surface->keyboard = keyboard;
    if (surface->isTold) tell("claims", surface->number);
}

void acknowledge(wl_client*, wl_resource* role, std::uint32_t)
{
    if (Surface* const surface = surfaceOfRole(role)) surface->isAnswered = true;
}

constexpr auto setEdges = setOnRole<&Surface::edges, std::uint32_t>;
constexpr auto setZone = setOnRole<&Surface::zone, int>;

const struct zwlr_layer_surface_v1_interface layerCalls = {ignore, setEdges,    setZone, ignore, setKeyboard,
                                                           ignore, acknowledge, destroy, ignore};

void roleGone(wl_resource* resource)
{
    if (Surface* const surface = surfaceOfRole(resource)) surface->layer = nullptr;
    tell("gone", numberOf(resource));
}

void makeLayer(wl_client* client, wl_resource* shell, std::uint32_t id, wl_resource* surfaceResource,
               wl_resource* output, std::uint32_t kind, const char*)
{
    Surface& surface = surfaceOf(surfaceResource);
    giveNumber(surface);
    surface.output = numberOf(output);
    surface.kind = kind;
    surface.layer = make(client, zwlr_layer_surface_v1_interface, shell, id, &layerCalls,
                         dataOf(surface.number), roleGone);
}

const struct zwlr_layer_shell_v1_interface shellCalls = {makeLayer, destroy};

void setFullScreen(wl_client*, wl_resource* toplevel, wl_resource* output)
{
    surfaceOf(toplevel).output = numberOf(output);
}

const struct xdg_toplevel_interface toplevelCalls = {destroy, ignore,        ignore, ignore, ignore,
                                                     ignore,  ignore,        ignore, ignore, ignore,
                                                     ignore,  setFullScreen, ignore, ignore};

void makeToplevel(wl_client* client, wl_resource* xdg, std::uint32_t id)
{
    Surface& surface = surfaceOf(xdg);
    giveNumber(surface);
    surface.toplevel = make(client, xdg_toplevel_interface, xdg, id, &toplevelCalls, &surface);
}

void acknowledgeWindow(wl_client*, wl_resource* xdg, std::uint32_t)
{
    surfaceOf(xdg).isAnswered = true;
}

const struct xdg_surface_interface xdgCalls = {destroy, makeToplevel, ignore, ignore, acknowledgeWindow};

void makeXdg(wl_client* client, wl_resource* base, std::uint32_t id, wl_resource* surface)
{
    surfaceOf(surface).xdg = make(client, xdg_surface_interface, base, id, &xdgCalls, &surfaceOf(surface));
}

const struct xdg_wm_base_interface baseCalls = {destroy, ignore, makeXdg, ignore};

template <const wl_interface* interface, auto* calls>
void bind(wl_client* client, void*, std::uint32_t version, std::uint32_t id)
{
    wl_resource_set_implementation(wl_resource_create(client, interface, static_cast<int>(version), id),
                                   calls, nullptr, nullptr);
}

const struct wl_output_interface outputCalls = {destroy};

void bindOutput(wl_client* client, void* number, std::uint32_t version, std::uint32_t id)
{
    auto* const resource = wl_resource_create(client, &wl_output_interface, static_cast<int>(version), id);
    wl_resource_set_implementation(resource, &outputCalls, number, nullptr);
    const Output& output = outputs.at(numberOf(resource));
    wl_output_send_geometry(resource, (output.number - 1) * 1000, 0, 100, 100, 0, "fake", "fake", 0);
    wl_output_send_mode(resource, WL_OUTPUT_MODE_CURRENT, output.width, output.height, 60000);
    if (version >= WL_OUTPUT_SCALE_SINCE_VERSION) wl_output_send_scale(resource, output.scale);
    if (version >= WL_OUTPUT_DONE_SINCE_VERSION) wl_output_send_done(resource);
}

void plug(std::istream& words)
{
    Output output{++lastOutput, 0, 0, 1, nullptr};
    words >> output.width >> output.height >> output.scale;
    outputs[output.number] = output;
    outputs[output.number].global =
        wl_global_create(display, &wl_output_interface, 3, dataOf(output.number), bindOutput);
}

/// The client has heard of its surface, and answered, before the output is gone.
void closeAndWait(wl_resource* layer)
{
    zwlr_layer_surface_v1_send_closed(layer);
    wl_display_flush_clients(display);
    pollfd answer{wl_client_get_fd(wl_resource_get_client(layer)), POLLIN, 0};
    poll(&answer, 1, 5000);
}

void unplug(int number)
{
    for (const auto& [_, surface] : surfaces)
        if (surface->output == number && surface->layer) closeAndWait(surface->layer);
    wl_global_destroy(outputs.at(number).global);
    outputs.erase(number);
}

void obey(const std::string& line)
{
    std::istringstream words(line);
    std::string order;
    int number = 0;
    words >> order;
    if (order == "plug") return plug(words);
    words >> number;
    if (order == "unplug") return unplug(number);
    bool isOn = false;
    if (order == "power" && words >> isOn) return tellPower(number, isOn);
    const auto found = surfaces.find(number);
    if (found == surfaces.end() || !found->second->layer) return;
    wl_resource* const layer = found->second->layer;
    std::uint32_t width = 0;
    std::uint32_t height = 0;
    words >> width >> height;
    if (order == "configure")
        zwlr_layer_surface_v1_send_configure(layer, wl_display_next_serial(display), width, height);
    if (order == "close") zwlr_layer_surface_v1_send_closed(layer);
}

/// All the lines that have come, so that they reach the client together.
int hear(int, std::uint32_t, void*)
{
    std::string line;
    do {
        if (!std::getline(std::cin, line)) {
            wl_display_terminate(display);
            return 0;
        }
        obey(line);
    } while (std::cin.rdbuf()->in_avail() > 0);
    return 0;
}

} // namespace

int main(int count, char** words)
{
    display = wl_display_create();
    if (count < 2 || wl_display_add_socket(display, words[1]) != 0) return 1;
    std::ios::sync_with_stdio(false);
    wl_display_init_shm(display);
    wl_global_create(display, &wl_compositor_interface, 4, nullptr,
                     bind<&wl_compositor_interface, &compositorCalls>);
    wl_global_create(display, &xdg_wm_base_interface, 1, nullptr, bind<&xdg_wm_base_interface, &baseCalls>);
    if (count < 3)
        wl_global_create(display, &zwlr_layer_shell_v1_interface, 4, nullptr,
                         bind<&zwlr_layer_shell_v1_interface, &shellCalls>);
    offerPower(display);
    wl_event_loop_add_fd(wl_display_get_event_loop(display), 0, WL_EVENT_READABLE, hear, nullptr);
    tell("ready");
    wl_display_run(display);
    wl_display_destroy_clients(display);
    wl_display_destroy(display);
    return 0;
}
