// A plain window of Qt Widgets of the size of the settings' one, with an empty table: what settings_bench.py
// compares the start with.

#include <QApplication>
#include <QTableWidget>
#include <QVBoxLayout>

int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window;
    QVBoxLayout column(&window);
    QTableWidget table(0, 3);
    column.addWidget(&table);
    window.resize(582, 402);
    window.show();
    return QApplication::exec();
}
