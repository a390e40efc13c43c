#include "host/preferences/XscreensaverPanel.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStandardPaths>

namespace kestro {

XscreensaverPanel::XscreensaverPanel(XscreensaverList list, QWidget* parent)
    : QWidget(parent)
    , m_list(std::move(list))
    , m_state(new QLabel(this))
    , m_button(new QPushButton(this))
{
    m_state->setWordWrap(true);
    m_state->setTextFormat(Qt::PlainText);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_state, 1);
    row->addWidget(m_button);
    connect(m_button, &QPushButton::clicked, this, &XscreensaverPanel::change);
    refresh();
}

void XscreensaverPanel::refresh()
{
    const bool isInstalled = !QStandardPaths::findExecutable(QStringLiteral("xscreensaver")).isEmpty();
    const auto listed = m_list.isListed();
    m_button->setVisible(isInstalled && listed);
    if (!isInstalled)
        m_state->setText(
            tr("XScreenSaver is not installed. The command \"kestro\" runs the saver at any time."));
    else if (!listed)
        m_state->setText(listed.error());
    else
        showListed(listed.value());
}

void XscreensaverPanel::showListed(bool isListed)
{
    m_isListed = isListed;
    m_state->setText(isListed ? tr("Kestro is in your list of XScreenSaver's savers.")
                              : tr("Kestro is not in your list of XScreenSaver's savers."));
    m_button->setText(isListed ? tr("&Remove from XScreenSaver") : tr("&Add to XScreenSaver"));
}

void XscreensaverPanel::change()
{
    const auto change = m_isListed ? m_list.remove() : m_list.add();
    refresh();
    if (!change) Q_EMIT failed(change.error());
}

} // namespace kestro
