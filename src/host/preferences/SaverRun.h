#pragma once

#include <QObject>
#include <QProcess>
#include <QString>

namespace kestro {

/// The saver run full screen by a program of its own, which ends by itself when a person does something, and
/// at the latest with this process. Owned by the window that starts it. Main thread.
class SaverRun final : public QObject {
    Q_OBJECT

public:
    /// `program` is the file to run.
    explicit SaverRun(QString program);
    ~SaverRun() override;

    /// Runs it; nothing while it runs.
    void start();
    [[nodiscard]] bool isRunning() const { return m_process.state() != QProcess::NotRunning; }
    /// Ends it and waits until it is gone: a tenth of a second for its own way out, then by force.
    void stop();

Q_SIGNALS:
    /// It is over. `error` is why it failed, in one line; empty where it did not.
    void ended(const QString& error);

private:
    void finished(int code, QProcess::ExitStatus status);
    void failed(QProcess::ProcessError error);
    [[nodiscard]] QString complaint();

    QProcess m_process;
    QString m_program;
};

} // namespace kestro
