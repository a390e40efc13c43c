#include "host/preferences/DoctorWindow.h"

#include <QClipboard>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <unistd.h>

namespace kestro {

namespace {

constexpr qsizetype longestReport = 1 << 20; // bytes
constexpr QSize roomForReport(40, 16);       // of the report's letters, columns and lines at least

} // namespace

DoctorWindow::DoctorWindow(const QString& program, QWidget* parent)
    : QDialog(parent)
    , m_report(new QPlainTextEdit(this))
    , m_buttons(new QDialogButtonBox(QDialogButtonBox::Close, this))
    , m_copy(m_buttons->addButton(tr("C&opy"), QDialogButtonBox::ActionRole))
{
    setWindowTitle(tr("Something Wrong?"));
    setAttribute(Qt::WA_DeleteOnClose);
    m_report->setReadOnly(true);
    m_report->setAccessibleName(tr("What was found"));
    m_report->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    const QFontMetrics letters(m_report->font());
    m_report->setMinimumSize(letters.averageCharWidth() * roomForReport.width(),
                             letters.lineSpacing() * roomForReport.height());
    auto* column = new QVBoxLayout(this);
    column->addWidget(m_report);
    column->addWidget(m_buttons);
    m_buttons->button(QDialogButtonBox::Close)->setText(tr("&Close"));
    resize(minimumSizeHint() * 2);
    connect(m_copy, &QPushButton::clicked,
            [this] { QGuiApplication::clipboard()->setText(m_report->toPlainText()); });
    connect(m_buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    start(program);
}

void DoctorWindow::start(const QString& program)
{
    tell(tr("Looking…"));
    m_copy->setEnabled(false);
    auto process = ChildProcess::start({.file = program,
                                        .arguments = {QStringLiteral("doctor")},
                                        .descriptors = {{m_said.number(), STDOUT_FILENO}},
                                        .endsWithParent = true});
    if (!process) return tell(tr("Cannot start %1: %2").arg(program, process.error()));
    m_doctor = std::move(process.value());
    m_doctor->whenEnded([this](const ChildEnd&) {
        m_doctor.reset();
        tell(QString::fromUtf8(m_said.first(longestReport)));
        m_copy->setEnabled(true);
    });
}

void DoctorWindow::tell(const QString& report)
{
    m_report->setPlainText(report.isEmpty() ? tr("Nothing could be found out.") : report);
}

} // namespace kestro
