#include "platform/saver/SaverPlugin.h"
#include "platform/saver/ScreenSaverView.h"

#include <QObject>

namespace kestro {

// Defined in no library, as in a saver built against another release.
bool kestroOperationOfAnotherRelease();

/// A saver library that lacks something it calls.
class MissingSymbol final : public QObject, public SaverPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KestroSaverPlugin_iid)
    Q_INTERFACES(kestro::SaverPlugin)

public:
    [[nodiscard]] std::shared_ptr<ScreenSaverView> initWithFrameIsPreview(const QString&, const Rect&, bool,
                                                                          Desktop&) override
    {
        return nullptr;
    }
    [[nodiscard]] bool isScreenSaverView(const QString&) const override
    {
        return kestroOperationOfAnotherRelease();
    }
};

} // namespace kestro

#include "MissingSymbol.moc"
