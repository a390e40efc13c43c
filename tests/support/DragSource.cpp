// A window at the upper left corner of the display out of which files are dragged, until somebody takes them.
//
// usage: drag_source PATH...

#include <QDrag>
#include <QGuiApplication>
#include <QMimeData>
#include <QRasterWindow>
#include <QUrl>

namespace {

class Source final : public QRasterWindow {
protected:
    void mousePressEvent(QMouseEvent*) override
    {
        QList<QUrl> urls;
        for (const QString& path : QGuiApplication::arguments().sliced(1))
            urls.append(QUrl::fromLocalFile(path));
        auto* const data = new QMimeData;
        data->setUrls(urls);
        auto* const drag = new QDrag(this);
        drag->setMimeData(data);
        const bool isTaken = drag->exec(Qt::CopyAction) != Qt::IgnoreAction;
        // Whoever took them asks for them now, and the drag goes away once that is done.
        if (isTaken) connect(drag, &QObject::destroyed, [] { QGuiApplication::exit(); });
    }
};

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    Source source;
    source.setFlags(Qt::FramelessWindowHint | Qt::BypassWindowManagerHint);
    source.setTitle(QStringLiteral("drag source"));
    source.setGeometry(0, 0, 40, 40);
    source.show();
    return QGuiApplication::exec();
}
