// What is said of the entries of the playlist while it is being edited, and what OK makes of it.

#include "config_ui/EditedMarks.h"

#include "config_ui/ConfigFixture.h"
#include "config_ui/EntryReader.h"
#include "config_ui/PlaylistTable.h"
#include "platform/base/Log.h"

#include <QDir>
#include <QSignalSpy>

namespace kestro {

namespace {

class EditedMarksTest : public ConfigFixture {
protected:
    EntryMark markAt(int row) { return m_model->marks().of(m_model->playList().entries()[row]); }
    void star(const QList<int>& rows)
    {
        m_model->marks().mark(rows, [](EntryMark& mark) { mark.isStarred = true; });
    }
    void playAtNight(const QList<int>& rows)
    {
        m_model->marks().mark(rows, [](EntryMark& mark) { mark.time.kind = PlayTime::Kind::Night; });
    }
    [[nodiscard]] QByteArray marksFile() { return ConfigurationFile::at(saver.marks().path()).text(); }
};

} // namespace

TEST_F(EditedMarksTest, marks_areStored_withOK)
{
    openList({movie("a"), movie("b")});
    star({0, 1});
    playAtNight({1});
    EXPECT_TRUE(marksFile().isEmpty());
    m_model->closeConfig(1);
    EXPECT_EQ(marksFile(), "[marks]\n1=star http://m/a\n2=star night http://m/b\n");
    EXPECT_TRUE(saver.playlist().marks().isStarred(0)) << "the saver that shows knows";
}

TEST_F(EditedMarksTest, marks_areForgotten_withCancel)
{
    openList({movie("a")});
    star({0});
    ASSERT_TRUE(markAt(0).isStarred);
    m_model->closeConfig(0);
    EXPECT_FALSE(markAt(0).isStarred);
    EXPECT_TRUE(marksFile().isEmpty());
}

TEST_F(EditedMarksTest, file_isNotMade_whereNothingIsSaid)
{
    openList({movie("a")});
    star({0});
    m_model->marks().mark({0}, [](EntryMark& mark) { mark.isStarred = false; });
    m_model->closeConfig(1);
    EXPECT_FALSE(QFile::exists(saver.marks().path()));
}

TEST_F(EditedMarksTest, mark_goes_whenItsEntryDoes)
{
    openList({movie("a"), movie("b")});
    star({0, 1});
    m_model->closeConfig(1);
    m_model->deleteMovie({0});
    m_model->closeConfig(1);
    EXPECT_EQ(marksFile(), "[marks]\n2=star http://m/b\n");
}

TEST_F(EditedMarksTest, mark_ofAnEntryThatIsInNoList_stays)
{
    ASSERT_TRUE(saver.marks().change({{QUrl(movie("other")), {true, {}}}}).isOk());
    openList({movie("a")});
    m_model->closeConfig(1);
    EXPECT_EQ(marksFile(), "[marks]\n1=star http://m/other\n");
}

TEST_F(EditedMarksTest, mark_goesWithAnEntryWhoseAddressIsEdited)
{
    openList({movie("a")});
    star({0});
    EXPECT_TRUE(m_model->editEntry(0, movie("b")));
    EXPECT_TRUE(markAt(0).isStarred);
    m_model->closeConfig(1);
    EXPECT_EQ(marksFile(), "[marks]\n1=star http://m/b\n");
}

TEST_F(EditedMarksTest, folder_saysItInThePlaylist)
{
    openList({"folder:///f?recursive=1"});
    star({0});
    playAtNight({0});
    EXPECT_EQ(listed(), QStringList{"folder:///f?recursive=1&star=1&when=night"});
    m_model->closeConfig(1);
    EXPECT_FALSE(QFile::exists(saver.marks().path()));
}

TEST_F(EditedMarksTest, hours_areAskedFor)
{
    openList({movie("a"), movie("b")});
    panels.hours = PlayTime{PlayTime::Kind::Hours, 480, 1020};
    m_model->askForHours({0, 1});
    EXPECT_EQ(markAt(0).time, *panels.hours);
    EXPECT_EQ(markAt(1).time, *panels.hours);
    panels.hours.reset();
    m_model->askForHours({1});
    EXPECT_EQ(panels.askedHours.back(), markAt(1).time);
    EXPECT_EQ(markAt(1).time.kind, PlayTime::Kind::Hours) << "cancelled";
}

TEST_F(EditedMarksTest, alert_saysThatMarksAreLost_whereTheyCannotBeWritten)
{
    openList({movie("a")});
    const LogCapture capture([](const QString&) {});
    ASSERT_TRUE(QDir().mkpath(saver.marks().path()));
    star({0});
    m_model->closeConfig(1);
    ASSERT_EQ(panels.alerts.size(), 1U);
    EXPECT_TRUE(panels.alerts[0].contains(saver.marks().path()));
}

TEST_F(EditedMarksTest, row_showsAndSaysTheMark)
{
    openList({movie("a"), movie("b")});
    EntryReader reader{[](const QUrl&, const std::stop_token&) { return EntryFacts(); }};
    PlaylistTable table(*m_model, reader, nullptr);
    QSignalSpy changed(&table, &QAbstractItemModel::dataChanged);
    star({1});
    playAtNight({1});
    ASSERT_EQ(changed.size(), 2);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    const auto shown = [&table](int row, int role) { return table.data(table.index(row, 0), role); };
    EXPECT_EQ(shown(1, Qt::AccessibleTextRole), "b, m, Starred, Plays at night");
    EXPECT_EQ(shown(1, Qt::ToolTipRole), movie("b") + "\nStarred, Plays at night");
    EXPECT_EQ(shown(1, PlaylistTable::MarkRole).value<EntryMark>(), markAt(1));
    EXPECT_EQ(shown(0, Qt::AccessibleTextRole), "a, m");
}

} // namespace kestro
