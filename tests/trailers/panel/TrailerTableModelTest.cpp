#include "trailers/panel/TrailerTableModel.h"

#include "trailers/TrailerListFixture.h"

#include <QDateTime>
#include <QLocale>
#include <QSignalSpy>

namespace kestro {

namespace {

const QString sel = QStringLiteral("SEL");
const QString urlColumn = QStringLiteral("URL");
const QString size = QStringLiteral("SIZE");
const QString date = QStringLiteral("DATE");

} // namespace

class TrailerTableModelTest : public TrailerListFixture {
protected:
    void show(std::vector<TrailerRecord> records)
    {
        m_list.store(std::move(records));
        m_model.reload();
    }
    [[nodiscard]] QVariant value(const QString& column, int row = 0) const
    {
        return m_model.tableViewObjectValueForTableColumnRow(column, row);
    }
    [[nodiscard]] QVariant shown(int column, int role = Qt::DisplayRole) const
    {
        return m_model.data(m_model.index(0, column), role);
    }
    [[nodiscard]] QVariant dateShown(std::optional<QString> stored)
    {
        TrailerRecord made = record("http://h/a.mov");
        made.date = std::move(stored);
        show({made});
        return value(date);
    }

    TrailerList m_list{m_home.path(), seed()};
    TrailerTableModel m_model{m_list};
};

TEST_F(TrailerTableModelTest, rowCount_isZero_whenThereIsNoListYet)
{
    m_model.reload();
    EXPECT_EQ(m_model.rowCount(), 0);
    EXPECT_FALSE(value(urlColumn).isValid());
    EXPECT_EQ(m_model.columnCount(), 4);
}

TEST_F(TrailerTableModelTest, rows_areThoseOfTheLastReload_whenTheListGrows)
{
    show({record("http://h/a.mov")});
    m_list.store({record("http://h/b.mov")});
    EXPECT_EQ(m_model.rowCount(), 1);
    m_model.reload();
    EXPECT_EQ(m_model.urls(),
              (QStringList{QStringLiteral("http://h/b.mov"), QStringLiteral("http://h/a.mov")}));
}

TEST_F(TrailerTableModelTest, rows_copyNoAddresses_whenTheyAreReloaded)
{
    show({record("http://h/a.mov"), record("http://h/b.mov")});
    EXPECT_EQ(m_list.scanedURLList()->constData(), m_model.urls().constData());
}

TEST_F(TrailerTableModelTest, columns_haveTheirIdentifiersAndPrototypes)
{
    EXPECT_EQ((QStringList{m_model.identifier(0), m_model.identifier(1), m_model.identifier(2),
                           m_model.identifier(3)}),
              (QStringList{sel, urlColumn, size, date}));
    EXPECT_EQ(m_model.sortDescriptorPrototype(TrailerTableModel::Url)->key, QStringLiteral("URL"));
    EXPECT_EQ(m_model.sortDescriptorPrototype(TrailerTableModel::Date)->key, QStringLiteral("Date"));
    EXPECT_FALSE(m_model.sortDescriptorPrototype(TrailerTableModel::Date)->ascending); // the newest first
    EXPECT_FALSE(m_model.sortDescriptorPrototype(TrailerTableModel::Sel));
    EXPECT_FALSE(m_model.sortDescriptorPrototype(TrailerTableModel::Size));
    for (int column = 0; column < 4; ++column)
        EXPECT_EQ(m_model.headerData(column, Qt::Horizontal, Qt::DisplayRole), m_model.identifier(column));
}

TEST_F(TrailerTableModelTest, objectValue_isWhatTheRecordHolds)
{
    show({record("http://h/a.mov", "480 x ---", "2006/09/01")});
    EXPECT_EQ(value(urlColumn), QStringLiteral("http://h/a.mov"));
    EXPECT_EQ(value(size), QStringLiteral("480 x ---"));
    EXPECT_EQ(value(date), QDateTime(QDate(2006, 9, 1), QTime(0, 0)));
    EXPECT_FALSE(value(sel).isValid());
}

TEST_F(TrailerTableModelTest, objectValue_isNothing_whenTheColumnOrTheRowIsNoOne)
{
    show({record("http://h/a.mov")});
    EXPECT_FALSE(value(QStringLiteral("AC")).isValid());
    EXPECT_FALSE(value(QStringLiteral("url")).isValid());
    EXPECT_FALSE(value(urlColumn, 1).isValid());
    EXPECT_FALSE(value(urlColumn, -1).isValid());
}

TEST_F(TrailerTableModelTest, objectValue_isNothing_whenTheRecordIsGone)
{
    show({record("http://h/a.mov")});
    m_list.clear();
    EXPECT_FALSE(value(size).isValid());
    EXPECT_EQ(value(urlColumn), QStringLiteral("http://h/a.mov"));
}

TEST_F(TrailerTableModelTest, objectValue_isNothing_whenTheDateIsMissingOrNone)
{
    EXPECT_FALSE(dateShown({}).isValid());
    for (const char* text : {"", "2006", "2006/09", "2006/13/01", "2006/02/30", "a/b/c", "2006-09-01"})
        EXPECT_FALSE(dateShown(QLatin1String(text)).isValid()) << text;
}

TEST_F(TrailerTableModelTest, objectValue_readsTheIntegersOfADate)
{
    EXPECT_EQ(dateShown(QStringLiteral("2006/9/1")), QDate(2006, 9, 1).startOfDay());
    EXPECT_EQ(dateShown(QStringLiteral(" 2024/02/29 12:30")), QDate(2024, 2, 29).startOfDay());
    EXPECT_EQ(dateShown(QStringLiteral("2006/09/01/77")), QDate(2006, 9, 1).startOfDay());
}

TEST_F(TrailerTableModelTest, data_showsADateAsTheLocaleWritesIt)
{
    show({record("http://h/a.mov", "480 x 204", "2006/09/01")});
    EXPECT_EQ(shown(TrailerTableModel::Date), QLocale().toString(QDate(2006, 9, 1), QLocale::ShortFormat));
    EXPECT_EQ(shown(TrailerTableModel::Size), QStringLiteral("480 x 204"));
    EXPECT_EQ(shown(TrailerTableModel::Url), QStringLiteral("http://h/a.mov"));
    EXPECT_EQ(shown(TrailerTableModel::Url, Qt::ToolTipRole), QStringLiteral("http://h/a.mov"));
    EXPECT_FALSE(shown(TrailerTableModel::Sel).isValid());
    EXPECT_FALSE(shown(TrailerTableModel::Size, Qt::ToolTipRole).isValid());
}

TEST_F(TrailerTableModelTest, toolTip_saysWhatATickMeans_onTheBoxAndItsHeader)
{
    show({record("http://h/a.mov")});
    const QString meaning =
        QStringLiteral("A mark of your own: it is kept with the trailer, and changes nothing else");
    EXPECT_EQ(shown(TrailerTableModel::Sel, Qt::ToolTipRole), meaning);
    EXPECT_EQ(m_model.headerData(TrailerTableModel::Sel, Qt::Horizontal, Qt::ToolTipRole), meaning);
    EXPECT_FALSE(m_model.headerData(TrailerTableModel::Date, Qt::Horizontal, Qt::ToolTipRole).isValid());
}

TEST_F(TrailerTableModelTest, setObjectValue_keepsTheValueAndLogsItsClass_whenTheColumnIsSEL)
{
    show({record("http://h/a.mov")});
    QSignalSpy changed(&m_model, &QAbstractItemModel::dataChanged);
    m_model.tableViewSetObjectValueForTableColumnRow(true, sel, 0);
    EXPECT_EQ(m_log, QStringList(QStringLiteral("object class = bool")));
    EXPECT_EQ(value(sel), QVariant(true));
    EXPECT_EQ(changed.size(), 1);
    EXPECT_TRUE(m_list.isChanged());
    m_model.tableViewSetObjectValueForTableColumnRow(QStringLiteral("yes"), sel, 0);
    EXPECT_EQ(m_log.last(), QStringLiteral("object class = QString"));
    EXPECT_EQ(value(sel), QVariant(QStringLiteral("yes")));
}

TEST_F(TrailerTableModelTest, setObjectValue_doesNothing_whenTheColumnIsAnotherOrThereIsNoRow)
{
    show({record("http://h/a.mov")});
    for (const QString& column : {urlColumn, size, date, QStringLiteral("AC")})
        m_model.tableViewSetObjectValueForTableColumnRow(QStringLiteral("x"), column, 0);
    for (const int row : {-1, 1})
        m_model.tableViewSetObjectValueForTableColumnRow(true, sel, row);
    EXPECT_TRUE(m_log.isEmpty());
    EXPECT_EQ(m_list.record(QStringLiteral("http://h/a.mov")), record("http://h/a.mov"));
}

TEST_F(TrailerTableModelTest, check_showsAndSetsSel_andIsKeptInTheFile)
{
    show({record("http://h/a.mov")});
    const QModelIndex index = m_model.index(0, TrailerTableModel::Sel);
    EXPECT_EQ(index.data(Qt::CheckStateRole), Qt::Unchecked);
    EXPECT_TRUE(m_model.setData(index, Qt::Checked, Qt::CheckStateRole));
    EXPECT_EQ(index.data(Qt::CheckStateRole), Qt::Checked);
    ASSERT_TRUE(m_list.saveList());
    TrailerList loaded(m_home.path(), seed());
    loaded.load();
    TrailerTableModel other(loaded);
    other.reload();
    EXPECT_EQ(other.index(0, TrailerTableModel::Sel).data(Qt::CheckStateRole), Qt::Checked);
    EXPECT_TRUE(m_model.setData(index, Qt::Unchecked, Qt::CheckStateRole));
    EXPECT_EQ(value(sel), QVariant(false));
}

TEST_F(TrailerTableModelTest, check_readsWhatAFileHolds)
{
    TrailerRecord made = record("http://h/a.mov");
    for (const auto& [stored, state] :
         {std::pair(QVariant(1), Qt::Checked), std::pair(QVariant(0), Qt::Unchecked),
          std::pair(QVariant(QStringLiteral("1")), Qt::Checked), std::pair(QVariant(true), Qt::Checked)}) {
        made.other[QStringLiteral("Sel")] = stored;
        show({made});
        EXPECT_EQ(shown(TrailerTableModel::Sel, Qt::CheckStateRole), state) << stored.typeName();
    }
}

TEST_F(TrailerTableModelTest, setData_refuses_whenTheColumnIsNotSEL)
{
    show({record("http://h/a.mov")});
    EXPECT_FALSE(m_model.setData(m_model.index(0, TrailerTableModel::Url), QStringLiteral("x")));
    EXPECT_FALSE(m_model.setData(m_model.index(0, TrailerTableModel::Sel), QStringLiteral("x")));
    EXPECT_FALSE(m_model.flags(m_model.index(0, TrailerTableModel::Url)) & Qt::ItemIsEditable);
    EXPECT_FALSE(m_model.flags(m_model.index(0, TrailerTableModel::Url)) & Qt::ItemIsUserCheckable);
    EXPECT_TRUE(m_model.flags(m_model.index(0, TrailerTableModel::Sel)) & Qt::ItemIsUserCheckable);
}

} // namespace kestro
