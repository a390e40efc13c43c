#pragma once

#include "host/render/PictureQueue.h"
#include "host/render/RenderOptions.h"
#include "host/start/Console.h"

#include <QTimer>

namespace kestro {

class Desktop;
class HostedSaver;
class SaverSession;
class TraceFile;

/// One run of `kestro render`: starts the session, takes pictures of every screen as their moments come,
/// writes a trace line after each tick, and stops the session at the end. A moment that is missed because a
/// picture took too long is left out. Owned by the command; main thread.
class RenderRun final {
public:
    /// The session runs on `desktop`; the pictures are those of `monitors`, which may be the same. `trace`
    /// may be null. All but the options must outlive the run.
    RenderRun(Desktop& desktop, Desktop& monitors, SaverSession& session, const PictureFolder& pictures,
              TraceFile* trace, const RenderOptions& options);

    /// Turns the event loop until the end; answers the exit status.
    [[nodiscard]] int exec();
    /// Ends the run now, with a last picture.
    void endEarly();

private:
    void begin();
    [[nodiscard]] double elapsed() const;
    void scheduleNext();
    void momentCame();
    void takePictures(double seconds);
    void trace(const HostedSaver& saver);
    void end(ExitCode status);

    Desktop& m_desktop;
    Desktop& m_monitors;
    SaverSession& m_session;
    PictureQueue m_pictures;
    TraceFile* m_trace;
    RenderOptions m_options;
    QTimer m_next;
    double m_started; ///< by the desktop's clock
    double m_due = 0; ///< the next moment, seconds from the start
    bool m_isOver = false;
};

} // namespace kestro
