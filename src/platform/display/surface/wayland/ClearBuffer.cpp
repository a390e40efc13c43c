#include "platform/display/surface/wayland/ClearBuffer.h"

#include <cstdint>
#include <sys/mman.h>
#include <unistd.h>
#include <wayland-client.h>

namespace kestro {

std::unique_ptr<ClearBuffer> ClearBuffer::create(wl_shm* memory, QSize size)
{
    if (size.isEmpty()) return nullptr;
    const int stride = size.width() * 4;
    const int bytes = stride * size.height();
    const int file = memfd_create("kestro-clear", MFD_CLOEXEC);
    if (file < 0) return nullptr;
    wl_buffer* buffer = nullptr;
    if (ftruncate(file, bytes) == 0) { // zeros, and a pixel of zeros is clear
        wl_shm_pool* const pool = wl_shm_create_pool(memory, file, bytes);
        buffer =
            wl_shm_pool_create_buffer(pool, 0, size.width(), size.height(), stride, WL_SHM_FORMAT_ARGB8888);
        wl_shm_pool_destroy(pool);
    }
    close(file);
    return buffer ? std::unique_ptr<ClearBuffer>(new ClearBuffer(buffer)) : nullptr;
}

ClearBuffer::~ClearBuffer()
{
    wl_buffer_destroy(m_buffer);
}

} // namespace kestro
