#include "platform/display/surface/x11/SharedPixels.h"

#include <cstdlib>
#include <sys/ipc.h>
#include <sys/shm.h>
#include <xcb/shm.h>
#include <xcb/xcb.h>

namespace kestro {

namespace {

bool hasSharedMemory(xcb_connection_t* connection)
{
    const auto* extension = xcb_get_extension_data(connection, &xcb_shm_id);
    return extension && extension->present;
}

/// Whether the server could take part in the memory with that system identifier.
bool attach(xcb_connection_t* connection, std::uint32_t segment, int identifier, bool isReadOnly)
{
    const auto cookie = xcb_shm_attach_checked(connection, segment, static_cast<std::uint32_t>(identifier),
                                               isReadOnly ? 1 : 0);
    xcb_generic_error_t* error = xcb_request_check(connection, cookie);
    const bool isAttached = !error;
    std::free(error);
    return isAttached;
}

} // namespace

std::unique_ptr<SharedPixels> SharedPixels::create(xcb_connection_t* connection, std::size_t bytes,
                                                   Access access)
{
    if (!hasSharedMemory(connection)) return nullptr;
    const int identifier = shmget(IPC_PRIVATE, bytes, IPC_CREAT | 0600);
    if (identifier < 0) return nullptr;
    void* const memory = shmat(identifier, nullptr, 0);
    const bool isMapped = memory != reinterpret_cast<void*>(-1);
    const std::uint32_t segment = isMapped ? xcb_generate_id(connection) : 0;
    const bool isAttached = isMapped && attach(connection, segment, identifier, access == Access::Read);
    // From here on it lives as long as somebody has it mapped.
    shmctl(identifier, IPC_RMID, nullptr);
    if (!isAttached) {
        if (isMapped) shmdt(memory);
        return nullptr;
    }
    return std::unique_ptr<SharedPixels>(
        new SharedPixels(connection, static_cast<unsigned char*>(memory), segment));
}

SharedPixels::SharedPixels(xcb_connection_t* connection, unsigned char* memory, std::uint32_t segment)
    : m_connection(connection)
    , m_memory(memory)
    , m_segment(segment)
{
}

SharedPixels::~SharedPixels()
{
    xcb_shm_detach(m_connection, m_segment);
    shmdt(m_memory);
}

} // namespace kestro
