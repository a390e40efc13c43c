#pragma once

#include "idle/IdleSaver.h"

#include <QString>
#include <QStringList>
#include <QTimer>

#include <memory>

namespace kestro {

class ChildProcess;

/// The saver run by a child process, which ends with this one however that happens. What it says goes where
/// the service's own words go. Tested by test_idle.
class SaverChild final : public IdleSaver {
public:
    /// `program` is the file to run, with these words.
    explicit SaverChild(QString program, QStringList arguments = {});
    /// Ends it, and waits for that for a moment at most.
    ~SaverChild() override;

    void start(EndHandler onEnd) override;
    void stop() override;

private:
    void ended(bool hasBrokenOff);

    QString m_program;
    QStringList m_arguments;
    EndHandler m_onEnd;
    std::unique_ptr<ChildProcess> m_process;
    QTimer m_patience; ///< runs out when it does not end in time
};

} // namespace kestro
