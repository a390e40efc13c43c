#include "platform/saver/SaverPlugin.h"
#include "platform/saver/ScreenSaverView.h"

#include <QObject>

#include <stdexcept>

namespace kestro {

/// A saver library that cannot be set up.
class ThrowingPlugin final : public QObject, public SaverPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KestroSaverPlugin_iid)
    Q_INTERFACES(kestro::SaverPlugin)

public:
    ThrowingPlugin() { throw std::runtime_error("no plug-in today"); }

    [[nodiscard]] std::shared_ptr<ScreenSaverView> initWithFrameIsPreview(const QString&, const Rect&, bool,
                                                                          Desktop&) override
    {
        return nullptr;
    }
    [[nodiscard]] bool isScreenSaverView(const QString&) const override { return false; }
};

} // namespace kestro

#include "ThrowingPlugin.moc"
