#include "config_ui/PlaylistTable.h"

#include "config_ui/ConfigFixture.h"
#include "config_ui/EntryReader.h"
#include "support/WaitUntil.h"

#include <QSignalSpy>

namespace kestro {

namespace {

class PlaylistTableTest : public ConfigFixture {
protected:
    PlaylistTableTest()
    {
        openList({movie("0"), movie("1"), movie("2"), movie("3")});
        table = std::make_unique<PlaylistTable>(*m_model, reader, nullptr);
    }

    [[nodiscard]] QVariant shown(int row, int role) const { return table->data(table->index(row, 0), role); }
    [[nodiscard]] QString order() const
    {
        QString names;
        for (int row = 0; row < table->rowCount(); ++row)
            names += shown(row, Qt::DisplayRole).toString();
        return names;
    }
    void learn(const QString& name)
    {
        QSignalSpy learned(&reader, &EntryReader::learned);
        reader.want({QUrl(movie(name))});
        EXPECT_TRUE(waitUntil([&] { return !learned.isEmpty(); }));
    }

    EntryFacts facts{.seconds = 62, .picture = QImage(4, 2, QImage::Format_RGB32), .fault = {}};
    EntryReader reader{[this](const QUrl&, const std::stop_token&) { return facts; }};
    std::unique_ptr<PlaylistTable> table;
};

} // namespace

TEST_F(PlaylistTableTest, rows_areTheEntries)
{
    EXPECT_EQ(order(), "0123");
    EXPECT_EQ(table->columnCount(), 1);
    EXPECT_EQ(shown(2, Qt::EditRole), movie("2"));
    EXPECT_EQ(shown(2, Qt::ToolTipRole), movie("2"));
    EXPECT_EQ(shown(2, PlaylistTable::DetailRole), "m");
    EXPECT_EQ(shown(2, Qt::AccessibleTextRole), "2, m");
    EXPECT_TRUE(shown(2, PlaylistTable::WaitingRole).toBool());
    EXPECT_FALSE(table->data(table->index(4, 0), Qt::DisplayRole).isValid());
}

TEST_F(PlaylistTableTest, names_sayMore_whereAnotherRowHasTheSame)
{
    m_model->addURLList({QUrl("http://other/1")});
    EXPECT_EQ(shown(1, Qt::DisplayRole), "1 (m)");
    EXPECT_EQ(shown(4, Qt::DisplayRole), "1 (other)");
    EXPECT_EQ(shown(4, Qt::AccessibleTextRole), "1 (other), other");
    m_model->deleteMovie({4});
    EXPECT_EQ(shown(1, Qt::DisplayRole), "1");
}

TEST_F(PlaylistTableTest, facts_areShownOnceTheyAreLearned)
{
    QSignalSpy changed(table.get(), &QAbstractItemModel::dataChanged);
    learn("2");
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 2);
    EXPECT_EQ(shown(2, PlaylistTable::DurationRole), "1:02");
    EXPECT_EQ(shown(2, Qt::DecorationRole).value<QImage>().size(), QSize(4, 2));
    EXPECT_EQ(shown(2, Qt::AccessibleTextRole), "2, 1:02, m");
    EXPECT_FALSE(shown(2, PlaylistTable::WaitingRole).toBool());
    EXPECT_FALSE(shown(2, PlaylistTable::FaultRole).toBool());
}

TEST_F(PlaylistTableTest, faults_areShownAndTold)
{
    facts = {.seconds = 0, .picture = {}, .fault = MovieFault{MovieFault::Kind::NoFile}};
    learn("1");
    EXPECT_TRUE(shown(1, PlaylistTable::FaultRole).toBool());
    EXPECT_EQ(shown(1, PlaylistTable::DetailRole), "m: cannot be opened, no such file");
    EXPECT_EQ(shown(1, Qt::ToolTipRole),
              movie("1") + "\nm: cannot be opened, no such file\nA click on the sign looks again.");
}

TEST_F(PlaylistTableTest, setData_editsTheEntry_unlessTheTextIsNoURL)
{
    EXPECT_TRUE(table->setData(table->index(1, 0), movie("x"), Qt::EditRole));
    EXPECT_FALSE(table->setData(table->index(2, 0), "no url", Qt::EditRole));
    EXPECT_FALSE(table->setData(table->index(4, 0), movie("y"), Qt::EditRole));
    EXPECT_EQ(order(), "0x23");
}

TEST_F(PlaylistTableTest, views_areToldOfTheRowsThatChangedOnly)
{
    QSignalSpy inserted(table.get(), &QAbstractItemModel::rowsInserted);
    QSignalSpy removed(table.get(), &QAbstractItemModel::rowsRemoved);
    QSignalSpy changed(table.get(), &QAbstractItemModel::dataChanged);
    QSignalSpy reset(table.get(), &QAbstractItemModel::modelReset);
    m_model->addURLList({QUrl(movie("4")), QUrl(movie("5"))});
    ASSERT_EQ(inserted.size(), 1);
    EXPECT_EQ(inserted[0][1], 4);
    EXPECT_EQ(inserted[0][2], 5);
    m_model->deleteMovie({1, 2});
    ASSERT_EQ(removed.size(), 1);
    EXPECT_EQ(removed[0][1], 1);
    EXPECT_EQ(removed[0][2], 2);
    EXPECT_TRUE(changed.isEmpty());
    m_model->playList().move(0, 2);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 2);
    EXPECT_TRUE(reset.isEmpty());
    EXPECT_EQ(order(), "3405");
}

TEST_F(PlaylistTableTest, rows_followAnyChange)
{
    m_model->deleteMovie({0, 2});
    EXPECT_EQ(order(), "13");
    m_model->resetInterfaces();
    EXPECT_EQ(order(), "0123");
    m_model->deleteMovie({0, 1, 2, 3});
    EXPECT_EQ(order(), "");
    m_model->addURLList({QUrl(movie("7"))});
    EXPECT_EQ(order(), "7");
    m_model->resetInterfaces();
    m_model->deleteMovie({1, 2});
    m_model->resetInterfaces();
    EXPECT_EQ(order(), "0123");
}

} // namespace kestro
