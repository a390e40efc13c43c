#pragma once

#include "platform/base/ChildOutput.h"
#include "platform/base/ChildProcess.h"

#include <QDialog>

#include <memory>

class QDialogButtonBox;
class QPlainTextEdit;
class QPushButton;

namespace kestro {

/// What `kestro doctor` says, to be read and to be copied for somebody who helps. The doctor is a program of
/// its own, which ends with this. Owned by who opens it. Main thread.
class DoctorWindow final : public QDialog {
    Q_OBJECT

public:
    /// `program` is the file that `kestro` is. It is run at once.
    DoctorWindow(const QString& program, QWidget* parent);

private:
    void start(const QString& program);
    void tell(const QString& report);

    ChildOutput m_said;
    std::unique_ptr<ChildProcess> m_doctor; ///< null once it has ended
    QPlainTextEdit* m_report;
    QDialogButtonBox* m_buttons;
    QPushButton* m_copy;
};

} // namespace kestro
