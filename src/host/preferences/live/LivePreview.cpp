#include "host/preferences/live/LivePreview.h"

#include "platform/base/Paths.h"
#include "platform/saver/SlideFolder.h"
#include "settings/ConfigurableSaver.h"

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

/// A saver of slide shows that is offered is to be shown, too: that takes the preferences that a desktop's
/// own settings make.
void prepareSlideShows(ConfigurableSaver& saver, const QString& home)
{
    const auto isSlideShow = [](const QString& path) { return path.endsWith(QStringLiteral(".slideSaver")); };
    if (std::ranges::any_of(saver.reloadBackSavers(), isSlideShow)) makeScreenSaverPreferences(home);
}

} // namespace

LivePreview::LivePreview(Parts parts)
    : m_makeSheet(std::move(parts.sheet))
    , m_trailers([this, make = std::move(parts.trailers)] { return make(m_saver->options()->movies()); })
    , m_saver(std::make_unique<SaverPreview>(std::move(parts.views)))
{
}

LivePreview::~LivePreview()
{
    delete m_sheet; // it refers to the saver
}

bool LivePreview::start(const std::function<void()>& made)
{
    QObject::connect(m_saver.get(), &SaverPreview::made, made);
    return m_saver->start();
}

void LivePreview::setPaused(Pause reason, bool paused)
{
    m_saver->setPaused(reason, paused);
}

void LivePreview::openOptions(QWidget& over)
{
    ConfigurableSaver* const saver = m_saver->options();
    if (!saver) return;
    prepareSlideShows(*saver, homeFolder());
    if (!m_sheet) m_sheet = m_makeSheet(*saver, m_trailers, &over);
    m_sheet->open();
}

void LivePreview::end()
{
    m_saver->end();
    m_trailers.close();
}

} // namespace kestro
