#pragma once

#include <QCoreApplication>

namespace kestro {

struct ScanEnd;

/// What the panel says of the end of a crawl, in a person's own language. Main thread. Tested by
/// PanelScanTest.
class ScanEndText final {
    Q_DECLARE_TR_FUNCTIONS(kestro::ScanEndText)

public:
    /// How it ended, in one line.
    [[nodiscard]] static QString line(const ScanEnd& end);
    /// Why so little came of it, in sentences; empty where there is nothing to say.
    [[nodiscard]] static QString notes(const ScanEnd& end);
};

} // namespace kestro
