#pragma once

#include "host/commands/ScanProgress.h"
#include "host/start/Console.h"
#include "trailers/TrailerCont.h"

#include <QTimer>

namespace kestro {

/// One run of `kestro scan`: starts the crawl, shows how far it is, and saves the list at its end. Owned by
/// the command; main thread. Tested by test_scan.
class ScanRun final : public TrailerObserver {
public:
    ScanRun(TrailerCont& controller, bool isVerbose);
    ~ScanRun() override;
    ScanRun(const ScanRun&) = delete;
    ScanRun& operator=(const ScanRun&) = delete;

    /// Turns the event loop until the crawl is over; answers the exit status.
    [[nodiscard]] int exec();
    /// Ends the crawl now; what it has is saved.
    void endEarly();

    void reloadTableView() override;
    void stopProgress() override;

private:
    [[nodiscard]] ExitCode finish();
    [[nodiscard]] bool saveList();

    TrailerCont& m_controller;
    ScanProgress m_progress;
    QTimer m_redraw;
};

} // namespace kestro
