#include "config_ui/URLPanel.h"

#include "ui_URLPanel.h"
#include "widgets/WindowPlace.h"

#include <utility>

namespace kestro {

URLPanel::URLPanel(CloseURLPanel closeURLPanel, QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui::URLPanel>())
    , m_closeURLPanel(std::move(closeURLPanel))
{
    m_ui->setupUi(this);
    new WindowPlace(*this);
    setWindowModality(Qt::ApplicationModal);
}

URLPanel::~URLPanel() = default;

void URLPanel::openURLPanel()
{
    m_ui->urlField->setFocus();
    show();
}

void URLPanel::done(int result)
{
    if (!m_closeURLPanel(result == Accepted ? 1 : 0, m_ui->urlField->text()))
        return m_ui->urlField->setFocus();
    QDialog::done(result);
}

} // namespace kestro
