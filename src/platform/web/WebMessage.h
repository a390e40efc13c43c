#pragma once

#include "platform/base/Descriptor.h"

#include <QByteArray>
#include <QRect>
#include <QSize>

namespace kestro {

/// One thing that the saver's process and its web helper say to each other. A page is named by a number that
/// the saver gives it. Plain values; pixels from the top left.
struct WebMessage {
    enum class Kind : quint32 {
        // the saver's words
        Ping,      ///< answer with Pong
        LoadMovie, ///< page `view`: play the SWF at the address `text`, and show nothing that is none
        LoadPage,  ///< page `view`: show the page at the address `text`
        Resize,  ///< page `view` is `size` pixels now, at `zoom` pixels a point; its pictures go to `memory`
        Release, ///< the picture `slot` of page `view` may be written again
        Mute,    ///< page `view` is silent where `flag`
        Fetched, ///< to the request `request` of page `view`: `length` bytes in `memory`, of the type
                 ///< `text`; where not `flag`, there are none, and `text` says why
        Stop,    ///< page `view` ends
        // the helper's
        Hello, ///< ready
        Pong,  ///< still there
        Frame, ///< page `view` has a new picture in `slot`; it differs from the one before in `damage`
        Note,  ///< page `view` cannot show what it should: `text`, for the log
        Fetch, ///< page `view` wants what is at the address `text`, and calls that `request`
    };

    Kind kind = Kind::Ping;
    quint32 view = 0;
    quint32 generation = 0; ///< of the memory that `slot` is in: each Resize has another
    quint32 request = 0;
    qint32 slot = 0;
    QSize size{0, 0};
    float zoom = 1;
    QRect damage;
    qint64 length = 0;
    bool flag = false;
    QByteArray text;   ///< UTF-8
    Descriptor memory; ///< see SharedFrames and SharedBytes
};

} // namespace kestro
