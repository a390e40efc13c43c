#pragma once

#include "host/xscreensaver/XscreensaverList.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace kestro {

/// Whether Kestro is in the user's list of xscreensaver's savers, and a button to put it in or take it out.
/// Where xscreensaver is not installed a sentence says so, without a button. Owned as any widget is. Main
/// thread.
class XscreensaverPanel final : public QWidget {
    Q_OBJECT

public:
    explicit XscreensaverPanel(XscreensaverList list, QWidget* parent = nullptr);

    /// Shows how things are now.
    void refresh();

    [[nodiscard]] QLabel& state() { return *m_state; }
    [[nodiscard]] QPushButton& button() { return *m_button; }

Q_SIGNALS:
    /// The list could not be changed; `error` is one line.
    void failed(const QString& error);

private:
    void change();
    void showListed(bool isListed);

    XscreensaverList m_list;
    QLabel* m_state; ///< Qt's parent owns both
    QPushButton* m_button;
    bool m_isListed = false;
};

} // namespace kestro
