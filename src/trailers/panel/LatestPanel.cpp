#include "trailers/panel/LatestPanel.h"

#include "ui_LatestPanel.h"
#include "widgets/WindowPlace.h"

#include <QPushButton>

namespace kestro {

namespace {

const QString firstResolution = QStringLiteral("480");

QStringList usualResolutions()
{
    return {QStringLiteral("320"), firstResolution,        QStringLiteral("640"),
            QStringLiteral("848"), QStringLiteral("1280"), QStringLiteral("1920")};
}

} // namespace

LatestPanel::LatestPanel(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::LatestPanel>())
{
    m_ui->setupUi(this);
    new WindowPlace(*this);
    const auto tagged = [this](QDialogButtonBox::StandardButton which, int tag) {
        QPushButton* const button = m_ui->buttons->button(which);
        button->setProperty("tag", tag);
        connect(button, &QPushButton::clicked, this, [this, button] { stopModal(*button); });
    };
    tagged(QDialogButtonBox::Ok, 1);
    tagged(QDialogButtonBox::Cancel, 0);
}

LatestPanel::~LatestPanel() = default;

void LatestPanel::setResolutions(const QStringList& titles)
{
    const QStringList offered = titles.isEmpty() ? usualResolutions() : titles;
    const QString before = m_ui->resPopup->currentText();
    const auto chosen = offered.indexOf(before.isEmpty() ? firstResolution : before);
    m_ui->resPopup->clear();
    m_ui->resPopup->addItems(offered);
    m_ui->resPopup->setCurrentIndex(qMax(0, static_cast<int>(chosen)));
}

std::optional<QUrl> LatestPanel::runModal()
{
    m_ui->countField->setFocus();
    m_ui->countField->selectAll();
    if (exec() == 0) return {};
    return automaticEntry(m_ui->countField->value(), m_ui->resPopup->currentText());
}

void LatestPanel::stopModal(const QObject& sender)
{
    done(sender.property("tag").toInt());
}

std::optional<QUrl> automaticEntry(int count, const QString& resolution)
{
    const QUrl url(QStringLiteral("auto://LatestTrailers/%1/%2").arg(QString::number(count), resolution),
                   QUrl::StrictMode);
    return url.isValid() ? std::optional(url) : std::nullopt;
}

} // namespace kestro
