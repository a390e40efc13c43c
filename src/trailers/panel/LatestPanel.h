#pragma once

#include <QDialog>
#include <QUrl>

#include <memory>
#include <optional>

namespace Ui {
class LatestPanel;
}

namespace kestro {

/// Asks for the count and the frame width of an automatic entry. Run modally; owned by the panel. Main
/// thread.
class LatestPanel final : public QDialog {
    Q_OBJECT

public:
    explicit LatestPanel(QWidget* parent = nullptr);
    ~LatestPanel() override;

    /// Offers these titles from now on, usual ones where there are none. The chosen one stays so where it is
    /// among them; the first choice is 480.
    void setResolutions(const QStringList& titles);
    /// Runs until a button is pressed; the entry asked for, nothing where that was given up or makes no URL.
    [[nodiscard]] std::optional<QUrl> runModal();

private:
    void stopModal(const QObject& sender);

    std::unique_ptr<Ui::LatestPanel> m_ui;
};

/// The entry that stands for the `count` newest trailers of the frame width that `resolution` names; nothing
/// where that makes no URL.
[[nodiscard]] std::optional<QUrl> automaticEntry(int count, const QString& resolution);

} // namespace kestro
