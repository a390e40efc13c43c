#pragma once

#include <QWidget>

class QLabel;
class QPushButton;

namespace kestro {

/// Movies that a playlist can begin with, on one line: a picture of them, what they are, and the button that
/// adds them. Sizes follow the font. Owned by its pane; main thread. Tested by StarterPaneTest.
class StarterRow final : public QWidget {
    Q_OBJECT

public:
    /// `spoken` is what the button does, for who hears it alone.
    StarterRow(const QString& name, const QString& spoken, QWidget* parent);

    void setDetail(const QString& detail);
    /// One that is as large as pictures of the playlist are, in pixels; a null one leaves its place empty.
    void setPicture(const QImage& picture);
    [[nodiscard]] QPushButton& button() { return *m_button; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void takeSizeOfFont();

    QLabel* m_picture; ///< Qt's parent owns them all
    QLabel* m_name;
    QLabel* m_detail;
    QPushButton* m_button;
};

} // namespace kestro
