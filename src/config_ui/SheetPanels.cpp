#include "config_ui/SheetPanels.h"

#include "config_ui/HoursPanel.h"
#include "platform/base/ChildProcess.h"
#include "platform/base/Log.h"
#include "widgets/StartFolder.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>
#include <QStandardPaths>

#include <utility>

namespace kestro {

namespace {

constexpr int patience = 500; ///< milliseconds before a wait is worth a window

} // namespace

SheetPanels::SheetPanels(QWidget& sheet)
    : m_sheet(sheet)
{
}

SheetPanels::~SheetPanels() = default;

// The file manager goes on when this program ends.
void SheetPanels::openFolder(const QString& folder)
{
    ChildProgram program;
    program.file = QStandardPaths::findExecutable(QStringLiteral("xdg-open"));
    program.arguments = {folder};
    program.group = ChildProgram::Group::OwnSession;
    auto process = ChildProcess::start(program);
    if (process) return ChildProcess::leave(std::move(process.value()));
    logLine(QStringLiteral("Cannot show %1: %2.").arg(folder, process.error()));
    runAlert(QCoreApplication::translate("Kestro", "The folder %1 cannot be shown.").arg(folder));
}

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

void SheetPanels::beginWait(const QString& message, std::function<void()> giveUp)
{
    endWait();
    m_wait.reset(new QProgressDialog(&m_sheet));
    m_wait->setLabelText(message);
    m_wait->setRange(0, 0); // nobody knows how long it takes
    m_wait->setMinimumDuration(patience);
    m_wait->setWindowModality(Qt::WindowModal);
    m_wait->setWindowTitle(QCoreApplication::translate("Kestro", "Add Movie"));
    QObject::connect(m_wait.get(), &QProgressDialog::canceled, m_wait.get(), std::move(giveUp));
}

// It may be told so by the window itself.
void SheetPanels::endWait()
{
    if (m_wait) m_wait->hide();
    m_wait.reset();
}

std::optional<ConfigPanels::Choice> SheetPanels::runOpenPanel(const QString& folder)
{
    QFileDialog panel(&m_sheet, QCoreApplication::translate("Kestro", "Add Movie"), startFolder(folder));
    panel.setFileMode(QFileDialog::ExistingFiles);
    if (panel.exec() != QDialog::Accepted) return {};
    const QStringList files = panel.selectedFiles();
    return Choice{files, QFileInfo(files.value(0)).absolutePath()};
}

std::optional<QString> SheetPanels::runFolderPanel(const QString& folder)
{
    QFileDialog panel(&m_sheet, QCoreApplication::translate("Kestro", "Add Folder"), startFolder(folder));
    panel.setFileMode(QFileDialog::Directory);
    panel.setOption(QFileDialog::ShowDirsOnly);
    if (panel.exec() != QDialog::Accepted) return {};
    return panel.selectedFiles().value(0);
}

std::optional<PlayTime> SheetPanels::runHoursPanel(const PlayTime& time)
{
    HoursPanel panel(time, &m_sheet);
    return panel.exec() == QDialog::Accepted ? std::optional(panel.hours()) : std::nullopt;
}

} // namespace kestro
