#include "TrailerRecords.h"
#include "platform/movie/MpvMovieLibrary.h"
#include "platform/network/CurlFetch.h"
#include "settings/URLListReceiver.h"
#include "trailers/TrailerCont.h"
#include "trailers/panel/PanelWindow.h"
#include "trailers/panel/TrailerPanel.h"
#include "trailers/panel/TrailerTableModel.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableWidget>
#include <QXmlStreamReader>

#include <cstdio>

// How long a person waits for the trailer browser, and for a plain table of Qt Widgets with the same rows of
// the same file. Prints what was done and the milliseconds until it was seen.
// usage: panel_bench make|panel|table HOME [RECORDS]

namespace kestro {

namespace {

using namespace Qt::StringLiterals;

/// Tells when a widget has been drawn anew.
class DrawingWatch final : public QObject {
public:
    explicit DrawingWatch(QWidget& widget) { widget.installEventFilter(this); }

    void wait()
    {
        m_isDrawn = false;
        while (!m_isDrawn)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    bool eventFilter(QObject*, QEvent* event) override
    {
        m_isDrawn = m_isDrawn || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool m_isDrawn = false;
};

class Nobody final : public URLListReceiver {
public:
    void addURLList(const QList<QUrl>&) override {}
};

void report(const char* what, const QElapsedTimer& since)
{
    std::printf("%s %.1f\n", what, static_cast<double>(since.nsecsElapsed()) / 1e6);
}

// What only the row that a search comes to last has.
QString lastText(const QAbstractItemModel& model, int column)
{
    return model.index(model.rowCount() - 2, column).data().toString();
}

int make(const QString& home, int count)
{
    TrailerList list(home, {});
    list.store(trailerRecords(count));
    for (int i = 0; i < count / 4; ++i)
        list.addPassed("http://trailers.example/trailers/studio/title_number_" + std::to_string(i) + "/");
    return list.saveList() ? 0 : 1;
}

int panel(const QString& home)
{
    MpvMovieLibrary movies;
    Nobody nobody;
    QElapsedTimer since;
    since.start();
    TrailerCont controller({home, {}, home, {}, std::make_unique<CurlFetch>()});
    TrailerPanel panel(controller, movies);
    auto& view = *panel.panel().findChild<QTableView*>();
    DrawingWatch watch(*view.viewport());
    panel.showPanel(nobody);
    watch.wait();
    report("open", since);

    since.restart();
    Q_EMIT panel.panel().columnSelected(TrailerTableModel::Url);
    watch.wait();
    report("sort", since);

    auto& field = *panel.panel().findChild<QLineEdit*>(u"findField"_s);
    field.setText(lastText(*view.model(), TrailerTableModel::Url));
    since.restart();
    Q_EMIT field.returnPressed();
    watch.wait();
    report("find", since);

    since.restart();
    panel.close();
    report("close", since);
    return 0;
}

// The texts of the records, in the order of their keys: Date, Size, URL.
QStringList textsOf(const QString& home)
{
    QFile file(TrailerListFile(home, {}).path());
    if (!file.open(QIODevice::ReadOnly)) std::exit(1);
    QXmlStreamReader xml(&file);
    QStringList texts;
    int depth = 0;
    constexpr int ofRecords = 5; // plist, dict, array, dict, string
    while (!xml.atEnd()) {
        const auto token = xml.readNext();
        if (token == QXmlStreamReader::EndElement) --depth;
        if (token != QXmlStreamReader::StartElement || ++depth != ofRecords) continue;
        const bool isText = xml.name() == "string"_L1;
        const QString text = xml.readElementText();
        --depth;
        if (isText) texts.append(text);
    }
    return texts;
}

void fill(QTableWidget& table, const QStringList& texts)
{
    table.setColumnCount(3);
    table.setRowCount(static_cast<int>(texts.size() / 3));
    table.setSelectionBehavior(QAbstractItemView::SelectRows);
    for (int i = 0; i < texts.size(); ++i)
        table.setItem(i / 3, i % 3, new QTableWidgetItem(texts[i])); // the table takes it over
    table.sortItems(0, Qt::DescendingOrder);
}

int table(const QString& home)
{
    constexpr int urlColumn = 2;
    QElapsedTimer since;
    since.start();
    QTableWidget table;
    table.resize(820, 520);
    fill(table, textsOf(home));
    DrawingWatch watch(*table.viewport());
    table.show();
    watch.wait();
    report("open", since);

    since.restart();
    table.sortItems(urlColumn, Qt::AscendingOrder);
    watch.wait();
    report("sort", since);

    const QString text = lastText(*table.model(), urlColumn);
    since.restart();
    table.setCurrentItem(table.findItems(text, Qt::MatchContains).value(0));
    watch.wait();
    report("find", since);
    return 0;
}

} // namespace

} // namespace kestro

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    const QByteArrayView what = argc > 2 ? argv[1] : "";
    if (what == "make")
        return kestro::make(QString::fromLocal8Bit(argv[2]), argc > 3 ? std::atoi(argv[3]) : 100000);
    if (what == "panel") return kestro::panel(QString::fromLocal8Bit(argv[2]));
    if (what == "table") return kestro::table(QString::fromLocal8Bit(argv[2]));
    return 2;
}
