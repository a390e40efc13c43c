#pragma once

#include "idle/IdleSwitch.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QSpinBox;

namespace kestro {

/// The switch that lets the saver start by itself, after how many minutes, after how many more it is black,
/// and a line that says what keeps it from starting now. What is chosen counts at once. Owned as any widget
/// is. Main thread.
class IdlePanel final : public QWidget {
    Q_OBJECT

public:
    explicit IdlePanel(IdleSwitch::Places places, QWidget* parent = nullptr);

    /// Reads the options anew: another program may have changed them.
    void refresh();

    [[nodiscard]] QCheckBox& isOn() { return *m_isOn; }
    [[nodiscard]] QSpinBox& minutes() { return *m_minutes; }
    [[nodiscard]] QSpinBox& end() { return *m_end; }
    [[nodiscard]] QLabel& state() { return *m_state; }

Q_SIGNALS:
    /// What was chosen could not be stored; `error` is one line.
    void failed(const QString& error);

private:
    void layOut();
    void store();
    void showStatus(const std::optional<IdleStatus>& status);

    IdleSwitch m_switch;
    QCheckBox* m_isOn; ///< Qt's parents own all of them
    QSpinBox* m_minutes;
    QSpinBox* m_end;
    QLabel* m_state;
};

} // namespace kestro
