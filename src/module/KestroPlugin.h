#pragma once

#include "platform/saver/SaverPlugin.h"

#include <QObject>

namespace kestro {

/// What the bundle's shared library exports: makes MySaver views that play real movies by the user's
/// settings. One per process. Main thread. Tested by test_display.
class KestroPlugin final : public QObject, public SaverPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KestroSaverPlugin_iid)
    Q_INTERFACES(kestro::SaverPlugin)

public:
    [[nodiscard]] std::shared_ptr<ScreenSaverView> initWithFrameIsPreview(const QString& className,
                                                                          const Rect& frame, bool isPreview,
                                                                          Desktop& desktop) override;
    void setOptionsForThisRun(const QVariantMap& options) override;
    [[nodiscard]] bool isScreenSaverView(const QString& className) const override;
};

} // namespace kestro
