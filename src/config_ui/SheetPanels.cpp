#include "config_ui/SheetPanels.h"

#include <QApplication>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QStandardPaths>

namespace kestro {

void SheetPanels::endSheet()
{
    m_sheet.hide();
}

void SheetPanels::runAlert(const QString& message)
{
    QWidget* const modal = QApplication::activeModalWidget();
    QWidget* const below = modal != nullptr ? modal : m_sheet.isVisible() ? &m_sheet : m_sheet.parentWidget();
    QMessageBox alert(QMessageBox::Warning, QCoreApplication::translate("Kestro", "Alert"), message,
                      QMessageBox::Ok, below);
    alert.button(QMessageBox::Ok)->setText(QCoreApplication::translate("Kestro", "OK"));
    alert.exec();
}

std::optional<ConfigPanels::Choice> SheetPanels::runOpenPanel(const QString& folder)
{
    const QString movies = QStandardPaths::writableLocation(QStandardPaths::MoviesLocation);
    QFileDialog panel(&m_sheet, QCoreApplication::translate("Kestro", "Add Movie"),
                      folder.isEmpty() ? movies : folder);
    panel.setFileMode(QFileDialog::ExistingFiles);
    if (panel.exec() != QDialog::Accepted) return {};
    return Choice{panel.selectedFiles(), panel.directory().absolutePath()};
}

} // namespace kestro
