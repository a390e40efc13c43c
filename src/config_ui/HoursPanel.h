#pragma once

#include "settings/PlayTime.h"

#include <QDialog>

class QPushButton;
class QTimeEdit;

namespace kestro {

/// The panel that asks between which hours of the day an entry plays. Owned by who shows it. Main thread.
class HoursPanel final : public QDialog {
    Q_OBJECT

public:
    /// Shows the hours of `time`, or those of an evening where it has none.
    HoursPanel(const PlayTime& time, QWidget* parent);

    /// What the fields say.
    [[nodiscard]] PlayTime hours() const;

private:
    void checkHours();

    QTimeEdit* m_from;
    QTimeEdit* m_to;
    QPushButton* m_ok;
};

} // namespace kestro
