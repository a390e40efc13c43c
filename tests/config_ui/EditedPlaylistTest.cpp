#include "config_ui/EditedPlaylist.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

class EditedPlaylistTest : public testing::Test {
protected:
    EditedPlaylistTest()
    {
        fill({"0", "1", "2", "3"});
        QObject::connect(&list, &EditedPlaylist::changed, [this] { ++changes; });
    }

    void fill(const QStringList& texts)
    {
        QList<PlaylistEntry> entries;
        for (const QString& text : texts)
            entries.append({QUrl(QStringLiteral("http://m/") + text), text});
        list.reset(entries);
    }
    [[nodiscard]] QString order() const
    {
        QStringList texts;
        for (const PlaylistEntry& entry : list.entries())
            texts.append(entry.text);
        return texts.join(u' ');
    }

    EditedPlaylist list;
    int changes = 0;
};

} // namespace

TEST_F(EditedPlaylistTest, move_countsTheTargetWithoutTheEntry)
{
    EXPECT_TRUE(list.move(0, 2));
    EXPECT_EQ(order(), "1 2 0 3");
    EXPECT_TRUE(list.move(3, 0));
    EXPECT_EQ(order(), "3 1 2 0");
    EXPECT_EQ(changes, 2);
}

TEST_F(EditedPlaylistTest, move_changesNothing_whereThereIsNoRow)
{
    for (const auto& [from, to] : {std::pair{-1, 0}, {0, -1}, {4, 0}, {0, 4}})
        EXPECT_FALSE(list.move(from, to));
    EXPECT_EQ(order(), "0 1 2 3");
    EXPECT_EQ(changes, 0);
}

TEST_F(EditedPlaylistTest, remove_takesExactlyTheRows_whateverTheirOrder)
{
    list.remove({3, 1});
    EXPECT_EQ(order(), "0 2");
    EXPECT_EQ(changes, 1);
}

TEST_F(EditedPlaylistTest, remove_keepsAnEntryWhoseTextIsXxx)
{
    fill({"xxx", "a", "xxx", "b"});
    list.remove({1, 3, 7, -1});
    EXPECT_EQ(order(), "xxx xxx");
}

TEST_F(EditedPlaylistTest, replace_putsTheURLOfTheText)
{
    EXPECT_TRUE(list.replace(1, "http://m/page.html"));
    EXPECT_EQ(order(), "0 http://m/page.html 2 3");
    EXPECT_EQ(list.entries()[1].url, QUrl("http://m/page.html"));
    EXPECT_EQ(changes, 1);
}

TEST_F(EditedPlaylistTest, replace_ignoresWhatIsNoURL_andWhatIsNoRow)
{
    EXPECT_FALSE(list.replace(1, "no url"));
    EXPECT_FALSE(list.replace(4, "http://m/a.mov"));
    EXPECT_FALSE(list.replace(-1, "http://m/a.mov"));
    EXPECT_EQ(order(), "0 1 2 3");
    EXPECT_EQ(changes, 0);
}

TEST_F(EditedPlaylistTest, append_keepsTheOrder)
{
    list.append({{QUrl("http://m/b"), "b"}, {QUrl("http://m/a"), "a"}});
    EXPECT_EQ(order(), "0 1 2 3 b a");
}

} // namespace kestro
