#pragma once

#include "platform/base/ChildOutput.h"
#include "platform/base/ChildProcess.h"

#include <QObject>
#include <QString>

#include <memory>

namespace kestro {

/// The saver run full screen by a program of its own, which ends by itself when a person does something, and
/// at the latest with this process. Owned by the window that starts it. Main thread.
class SaverRun final : public QObject {
    Q_OBJECT

public:
    /// `program` is the file to run.
    explicit SaverRun(QString program);
    ~SaverRun() override;

    /// Runs it; nothing while it runs. Where it cannot be started it is over at once.
    void start();
    [[nodiscard]] bool isRunning() const { return m_process != nullptr; }
    /// Ends it and waits until it is gone: a tenth of a second for its own way out, then by force. Its end is
    /// not told.
    void stop();

Q_SIGNALS:
    /// It is over. `error` is why it failed, in one line; empty where it did not.
    void ended(const QString& error);

private:
    void finished(const ChildEnd& end);
    [[nodiscard]] QString lastErrorLine() const;

    std::unique_ptr<ChildProcess> m_process;
    ChildOutput m_said; ///< its errors
    QString m_program;
};

} // namespace kestro
