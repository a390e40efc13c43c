#pragma once

#include "config_ui/ConfigPanels.h"

#include <QScopedPointer>

#include <memory>

class QProgressDialog;
class QWidget;

namespace kestro {

/// The panels of the real sheet, each modal over the window in front. Owned by the sheet; main thread.
/// Those that take files are tested by ConfigSheetPlaylistTest.
class SheetPanels final : public ConfigPanels {
public:
    explicit SheetPanels(QWidget& sheet);
    ~SheetPanels() override;

    void openFolder(const QString& folder) override;
    void endSheet() override;
    void runAlert(const QString& message) override;
    void beginWait(const QString& message, std::function<void()> giveUp) override;
    void endWait() override;
    [[nodiscard]] std::optional<Choice> runOpenPanel(const QString& folder) override;
    [[nodiscard]] std::optional<QString> runFolderPanel(const QString& folder) override;
    [[nodiscard]] std::optional<PlayTime> runHoursPanel(const PlayTime& time) override;

private:
    QWidget& m_sheet;
    std::unique_ptr<QProgressDialog, QScopedPointerDeleteLater> m_wait; ///< while something is waited for
};

} // namespace kestro
