#pragma once

#include <QWidget>

namespace kestro {

/// Controls of which one is chosen, as a group for who cannot see that they stand together: the label whose
/// buddy it is gives it its name. It looks like nothing. Owned as any widget is. Tested by WindowsTest.
class ControlGroup final : public QWidget {
    Q_OBJECT

public:
    explicit ControlGroup(QWidget* parent = nullptr);
};

} // namespace kestro
