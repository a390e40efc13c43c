// Tested by test_settings.

#include "config_ui/ConfigSheet.h"
#include "host/preferences/live/LivePreview.h"
#include "host/session/KestroBundle.h"
#include "platform/saver/ScreenSaverView.h"
#include "trailers/TrailerCont.h"
#include "trailers/panel/TrailerPanel.h"

namespace kestro {

namespace {

std::shared_ptr<ScreenSaverView> makeView(const Rect& frame, Desktop& desktop)
{
    const auto principal = kestroSaver();
    return principal ? principal->initWithFrameIsPreview(frame, true, desktop) : nullptr;
}

std::unique_ptr<TrailerBrowser> makeBrowser(MovieLibrary& movies)
{
    return std::make_unique<TrailerPanel>(TrailerCont::sharedController(), movies);
}

} // namespace

} // namespace kestro

/// What the program looks for in this library. The caller owns the answer.
extern "C" Q_DECL_EXPORT kestro::Preview* kestroLivePreview(QSettings* state)
{
    const auto sheet = [state](kestro::ConfigurableSaver& saver, kestro::TrailerBrowser& trailers,
                               QWidget* over) {
        return new kestro::ConfigSheet(saver, &trailers, over, state);
    };
    return new kestro::LivePreview({kestro::makeView, sheet, kestro::makeBrowser});
}
