#include "OddPower.h"

#include <cstdint>
#include <iostream>
#include <list>
#include <wayland-server.h>
#include <wayland-wlr-output-power-server.h>

namespace {

std::list<wl_resource*> listeners; ///< each has its output's number for data

std::intptr_t numberOf(wl_resource* resource)
{
    return reinterpret_cast<std::intptr_t>(wl_resource_get_user_data(resource));
}

void destroy(wl_client*, wl_resource* resource)
{
    wl_resource_destroy(resource);
}

void setMode(wl_client*, wl_resource* listener, std::uint32_t)
{
    std::cout << "switches " << numberOf(listener) << std::endl;
}

const struct zwlr_output_power_v1_interface listenerCalls = {setMode, destroy};

void makeListener(wl_client* client, wl_resource* manager, std::uint32_t id, wl_resource* output)
{
    auto* const listener =
        wl_resource_create(client, &zwlr_output_power_v1_interface, wl_resource_get_version(manager), id);
    wl_resource_set_implementation(listener, &listenerCalls, wl_resource_get_user_data(output),
                                   [](wl_resource* gone) { listeners.remove(gone); });
    listeners.push_back(listener);
    zwlr_output_power_v1_send_mode(listener, ZWLR_OUTPUT_POWER_V1_MODE_ON);
}

const struct zwlr_output_power_manager_v1_interface managerCalls = {makeListener, destroy};

void bindManager(wl_client* client, void*, std::uint32_t version, std::uint32_t id)
{
    auto* const manager =
        wl_resource_create(client, &zwlr_output_power_manager_v1_interface, static_cast<int>(version), id);
    wl_resource_set_implementation(manager, &managerCalls, nullptr, nullptr);
}

} // namespace

void offerPower(wl_display* display)
{
    wl_global_create(display, &zwlr_output_power_manager_v1_interface, 1, nullptr, bindManager);
}

void tellPower(int output, bool isOn)
{
    for (wl_resource* listener : listeners)
        if (numberOf(listener) == output)
            zwlr_output_power_v1_send_mode(listener, isOn ? ZWLR_OUTPUT_POWER_V1_MODE_ON
                                                          : ZWLR_OUTPUT_POWER_V1_MODE_OFF);
}
