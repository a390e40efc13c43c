#include "platform/display/view/BackingStore.h"

#include "platform/display/DisplayTest.h"

namespace kestro {

namespace {

class BackingStoreTest : public DisplayTest {};

/// A view that has its window resized while it draws for the first time, and goes on drawing.
class ResizingView final : public View {
public:
    using View::View;
    void drawRect(Painter& painter, const Rect&) override
    {
        painter.fill({{0, 0}, {20, 20}}, Qt::red);
        if (++draws > 1) return;
        window()->setFrameDisplay({{0, 0}, {20, 20}}, true);
        drawnAnewWithin = draws > 1;
        painter.fill({{0, 0}, {50, 50}}, Qt::blue);
    }

    int draws = 0;
    bool drawnAnewWithin = false;
};

/// What Qt says while this is there.
class QtMessages final {
public:
    QtMessages()
        : m_before(qInstallMessageHandler(
              [](QtMsgType, const QMessageLogContext&, const QString& text) { said().append(text); }))
    {
        said().clear();
    }
    ~QtMessages() { qInstallMessageHandler(m_before); }
    static QStringList& said()
    {
        static QStringList all;
        return all;
    }

private:
    QtMessageHandler m_before;
};

} // namespace

TEST_F(BackingStoreTest, reset_showsWhatIsDrawnAnew_whenAViewResizesItsWindowAsItDraws)
{
    const QtMessages messages;
    ResizingView view({{0, 0}, {50, 50}});
    Window window({{{0, 0}, {50, 50}}, &screen(), QStringLiteral("window")});
    window.setContentView(&view);
    window.orderFront();
    screen().update();
    screen().update();
    EXPECT_TRUE(view.drawnAnewWithin);
    EXPECT_EQ(at(10, 10), QColor(Qt::red));
    EXPECT_EQ(at(30, 30), QColor(Qt::black));
    EXPECT_EQ(QtMessages::said(), QStringList());
}

} // namespace kestro
