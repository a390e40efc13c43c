#pragma once

struct mpv_handle;

namespace kestro {

/// Degrees clockwise that turn the moving picture among the tracks upright; negative when there is none. It
/// asks mpv, so it is for moments when mpv waits.
[[nodiscard]] int rotationOfMovingPicture(mpv_handle* mpv);

} // namespace kestro
