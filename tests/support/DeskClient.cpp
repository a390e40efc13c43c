// Another program in a Wayland session, for the tests of what Kestro leaves to others: a full-screen window
// in the colour that is named on its command line. It writes a line for each thing that it is told: "focus"
// and "blur" as the keyboard comes and goes, "key", "keyup", "button" and "buttonup".

#include <QGuiApplication>
#include <QPainter>
#include <QRasterWindow>

#include <iostream>

namespace {

class Window final : public QRasterWindow {
public:
    explicit Window(const QColor& colour)
        : m_colour(colour)
    {
        setTitle(QStringLiteral("desk client"));
    }

protected:
    bool event(QEvent* event) override
    {
        switch (event->type()) {
        case QEvent::FocusIn:
            tell("focus");
            break;
        case QEvent::FocusOut:
            tell("blur");
            break;
        case QEvent::KeyPress:
            tell("key");
            break;
        case QEvent::KeyRelease:
            tell("keyup");
            break;
        case QEvent::MouseButtonPress:
            tell("button");
            break;
        case QEvent::MouseButtonRelease:
            tell("buttonup");
            break;
        default:
            break;
        }
        return QRasterWindow::event(event);
    }
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.fillRect(QRect({0, 0}, size()), m_colour);
    }

private:
    static void tell(const char* what) { std::cout << what << std::endl; }

    QColor m_colour;
};

} // namespace

int main(int count, char** words)
{
    const QGuiApplication application(count, words);
    Window window{QColor(QLatin1String(count > 1 ? words[1] : "blue"))};
    window.showFullScreen();
    return QGuiApplication::exec();
}
