#pragma once

#include <QDialog>

#include <functional>
#include <memory>

namespace Ui {
class URLPanel;
}

namespace kestro {

/// The panel that takes a typed URL ("urlPanel"), modal over the sheet. It asks whether it may close at each
/// OK, and stays open with its text where not. Owned by the sheet. Main thread.
/// Tested by ConfigSheetPlaylistTest.
class URLPanel final : public QDialog {
    Q_OBJECT

public:
    /// Told the tag, 1 for OK and 0 for Cancel, and the text; answers whether the panel closes.
    using CloseURLPanel = std::function<bool(int tag, const QString& urlField)>;

    URLPanel(CloseURLPanel closeURLPanel, QWidget* parent);
    ~URLPanel() override;

    /// Shows the panel with its text selected.
    void openURLPanel();
    void done(int result) override;

private:
    std::unique_ptr<Ui::URLPanel> m_ui;
    CloseURLPanel m_closeURLPanel;
};

} // namespace kestro
