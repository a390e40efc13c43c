// Coloured dots that drift over a black screen and come back in where they left it: a whole saver in one
// file.

#include <QObject>

#include <platform/display/desktop/Desktop.h>
#include <platform/display/view/Painter.h>
#include <platform/saver/SaverPlugin.h>
#include <platform/saver/ScreenSaverFunctions.h>
#include <platform/saver/ScreenSaverView.h>
#include <vector>

namespace {

using kestro::Desktop;
using kestro::Rect;

constexpr int dotCount = 60;
constexpr float dotSide = 8;

struct Dot {
    kestro::Point place; ///< of its lower left corner, points
    kestro::Point step;  ///< from one tick to the next
    QColor colour;
};

class DriftingDotsView final : public kestro::ScreenSaverView {
public:
    DriftingDotsView(const Rect& frame, bool isPreview, Desktop& desktop)
        : ScreenSaverView(frame, isPreview)
    {
        setAnimationTimeInterval(1.0 / 20);
        const auto between = [&desktop](int least, int most) {
            return kestro::SSRandomIntBetween(desktop.random(), least, most);
        };
        for (int i = 0; i < dotCount; ++i) {
            Dot dot;
            dot.place.x = static_cast<float>(between(0, static_cast<int>(frame.size.width)));
            dot.place.y = static_cast<float>(between(0, static_cast<int>(frame.size.height)));
            dot.step = {static_cast<float>(between(1, 4)), static_cast<float>(between(-2, 2))};
            dot.colour = QColor::fromHsv(between(0, 359), 200, 255);
            m_dots.push_back(dot);
        }
    }

    // Only where a dot was and where it now is has to be drawn again.
    void animateOneFrame() override
    {
        for (Dot& dot : m_dots) {
            setNeedsDisplayInRect(rectOf(dot));
            dot.place.x = wrapped(dot.place.x + dot.step.x, bounds().size.width);
            dot.place.y = wrapped(dot.place.y + dot.step.y, bounds().size.height);
            setNeedsDisplayInRect(rectOf(dot));
        }
    }

    void drawRect(kestro::Painter& painter, const Rect& rect) override
    {
        ScreenSaverView::drawRect(painter, rect); // black
        for (const Dot& dot : m_dots)
            painter.fill(rectOf(dot), dot.colour);
    }

private:
    static Rect rectOf(const Dot& dot) { return {dot.place, {dotSide, dotSide}}; }
    static float wrapped(float value, float end)
    {
        if (value > end) return -dotSide;
        return value < -dotSide ? end : value;
    }

    std::vector<Dot> m_dots;
};

/// What the bundle's library exports.
class DriftingDotsPlugin final : public QObject, public kestro::SaverPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID KestroSaverPlugin_iid)
    Q_INTERFACES(kestro::SaverPlugin)

public:
    std::shared_ptr<kestro::ScreenSaverView> initWithFrameIsPreview(const QString& className,
                                                                    const Rect& frame, bool isPreview,
                                                                    Desktop& desktop) override
    {
        if (!isScreenSaverView(className)) return nullptr;
        return std::make_shared<DriftingDotsView>(frame, isPreview, desktop);
    }

    bool isScreenSaverView(const QString& className) const override
    {
        return className == QLatin1String("DriftingDotsView");
    }
};

} // namespace

#include "DriftingDots.moc"
