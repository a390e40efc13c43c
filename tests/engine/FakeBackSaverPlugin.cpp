#include "engine/FakeBackSaver.h"
#include "platform/saver/SaverPlugin.h"

#include <QObject>

#include <stdexcept>

namespace kestro {

/// A library with one good class, and one for each way in which a class can be of no use.
class FakeBackSaverPlugin final : public QObject, public SaverPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KestroSaverPlugin_iid)
    Q_INTERFACES(kestro::SaverPlugin)

public:
    [[nodiscard]] bool isScreenSaverView(const QString& className) const override
    {
        return className != u"NoSaver";
    }
    [[nodiscard]] std::shared_ptr<ScreenSaverView>
    initWithFrameIsPreview(const QString& className, const Rect& frame, bool isPreview, Desktop&) override
    {
        if (className == u"Throws") throw std::runtime_error("no view today");
        if (className == u"FakeBackSaver") return std::make_shared<FakeBackSaver>(frame, isPreview);
        return nullptr;
    }
};

} // namespace kestro

#include "FakeBackSaverPlugin.moc"
