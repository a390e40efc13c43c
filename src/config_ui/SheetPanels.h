#pragma once

#include "config_ui/ConfigPanels.h"

class QWidget;

namespace kestro {

/// The panels of the real sheet, each modal over the window in front. Owned by the sheet; main thread.
/// Tested by ConfigSheetPlaylistTest.
class SheetPanels final : public ConfigPanels {
public:
    explicit SheetPanels(QWidget& sheet)
        : m_sheet(sheet)
    {
    }

    void openFolder(const QString& folder) override;
    void endSheet() override;
    void runAlert(const QString& message) override;
    [[nodiscard]] std::optional<Choice> runOpenPanel(const QString& folder) override;

private:
    QWidget& m_sheet;
};

} // namespace kestro
