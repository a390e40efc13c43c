#include "platform/display/surface/wayland/OutputPower.h"

#include "platform/display/surface/wayland/LayerShell.h"

#include <cstdint>
#include <utility>
#include <wayland-client.h>
#include <wayland-wlr-output-power.h>

namespace kestro {

struct OutputPower::Listener {
    static void mode(void* data, zwlr_output_power_v1*, std::uint32_t mode)
    {
        static_cast<OutputPower*>(data)->tell(mode != ZWLR_OUTPUT_POWER_V1_MODE_OFF);
    }
    static void failed(void* data, zwlr_output_power_v1*) { static_cast<OutputPower*>(data)->tell(true); }
    static constexpr zwlr_output_power_v1_listener calls{mode, failed};
};

std::unique_ptr<OutputPower> OutputPower::create(const LayerShell& shell, wl_output* output,
                                                 std::function<void(bool)> onMode)
{
    if (!shell.power()) return nullptr;
    auto* const power = zwlr_output_power_manager_v1_get_output_power(shell.power(), output);
    return std::unique_ptr<OutputPower>(new OutputPower(power, std::move(onMode)));
}

OutputPower::OutputPower(zwlr_output_power_v1* power, std::function<void(bool)> onMode)
    : m_power(power)
    , m_onMode(std::move(onMode))
{
    zwlr_output_power_v1_add_listener(m_power, &Listener::calls, this);
}

OutputPower::~OutputPower()
{
    zwlr_output_power_v1_destroy(m_power);
}

void OutputPower::tell(bool isOn)
{
    QMetaObject::invokeMethod(
        &m_turn, [this, isOn] { m_onMode(isOn); }, Qt::QueuedConnection);
}

} // namespace kestro
