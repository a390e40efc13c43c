#include "platform/display/desktop/Desktop.h"
#include "platform/saver/SaverPlugin.h"
#include "platform/saver/ScreenSaverView.h"

#include <QObject>

#include <stdexcept>

namespace kestro {

/// A saver library with a class for each thing that may happen when a view is made.
class TestSaver final : public QObject, public SaverPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KestroSaverPlugin_iid)
    Q_INTERFACES(kestro::SaverPlugin)

public:
    [[nodiscard]] std::shared_ptr<ScreenSaverView> initWithFrameIsPreview(const QString& className,
                                                                          const Rect& frame, bool isPreview,
                                                                          Desktop& desktop) override;
    [[nodiscard]] bool isScreenSaverView(const QString& className) const override;
    void setOptionsForThisRun(const QVariantMap& options) override;

private:
    int m_options = 0; ///< how many it was given
};

namespace {

/// Tells through its tick interval in which desktop it was made, and with how many options.
class TestSaverView final : public ScreenSaverView {
public:
    TestSaverView(const Rect& frame, bool isPreview, const Desktop& desktop, int options)
        : ScreenSaverView(frame, isPreview)
    {
        setAnimationTimeInterval(static_cast<double>(desktop.screens().size()) + options);
    }
    [[nodiscard]] bool hasConfigureSheet() const override { return true; }
};

} // namespace

void TestSaver::setOptionsForThisRun(const QVariantMap& options)
{
    if (options.contains(QStringLiteral("throw"))) throw std::runtime_error("no options today");
    m_options = static_cast<int>(options.size());
}

bool TestSaver::isScreenSaverView(const QString& className) const
{
    if (className == u"ThrowsWhenAsked") throw std::runtime_error("asked");
    return className == u"TestSaverView" || className.startsWith(u"Throws");
}

std::shared_ptr<ScreenSaverView> TestSaver::initWithFrameIsPreview(const QString& className,
                                                                   const Rect& frame, bool isPreview,
                                                                   Desktop& desktop)
{
    if (className == u"ThrowsAnException") throw std::runtime_error("no view today");
    if (className == u"ThrowsANumber") throw 5;
    if (className != u"TestSaverView") return nullptr;
    return std::make_shared<TestSaverView>(frame, isPreview, desktop, m_options);
}

} // namespace kestro

#include "TestSaver.moc"
