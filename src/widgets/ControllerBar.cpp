#include "widgets/ControllerBar.h"

#include "widgets/PlayButton.h"
#include "widgets/ScrubBar.h"

#include <QHBoxLayout>

namespace kestro {

ControllerBar::ControllerBar(QWidget* parent)
    : QWidget(parent)
    , m_playButton(new PlayButton(this))
    , m_scrubBar(new ScrubBar(this))
{
    setFixedHeight(barHeight);
    setAutoFillBackground(true);
    m_playButton->setFixedSize(barHeight * 3 / 2, barHeight);
    // Narrower than a slider would like to be, and lower: the bar is what it is in the narrowest window.
    m_scrubBar->setMinimumWidth(1);
    m_scrubBar->setFixedHeight(barHeight);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    row->addWidget(m_playButton);
    row->addWidget(m_scrubBar, 1);
    connect(m_playButton, &PlayButton::clicked, this, &ControllerBar::toggled);
    connect(m_scrubBar, &ScrubBar::sought, this, &ControllerBar::sought);
    showState({});
}

void ControllerBar::showState(const State& state)
{
    m_playButton->setEnabled(state.hasMovie);
    m_playButton->setPlaying(state.isPlaying);
    m_scrubBar->setEnabled(state.hasMovie && state.duration > 0);
    m_scrubBar->showTime(state.position, state.duration);
}

} // namespace kestro
