// What the sheet offers to begin with.

#include "config_ui/ConfigSheetFixture.h"
#include "config_ui/StarterPane.h"
#include "support/WaitUntil.h"

#include <QPushButton>

namespace kestro {

namespace {

class ConfigSheetStarterTest : public ConfigSheetFixture {};

} // namespace

TEST_F(ConfigSheetStarterTest, emptyList_isOfferedMoviesThatTheKeysAdd)
{
    const QString video = machine.putVideo("a.mp4");
    open({});
    QPushButton& add = *sheet->findChild<StarterPane*>()->buttons().first();
    ASSERT_TRUE(waitUntil([&add] { return add.isVisible(); }));
    table().setFocus();
    QTest::keyClick(&table(), Qt::Key_Tab);
    ASSERT_EQ(QApplication::focusWidget(), &add);
    QTest::keyClick(&add, Qt::Key_Space);
    EXPECT_EQ(listed(), QStringList{QUrl::fromLocalFile(video).toString(QUrl::FullyEncoded)});
    EXPECT_EQ(QApplication::focusWidget(), &table());
}

TEST_F(ConfigSheetStarterTest, returnKey_isStillForOK_whileMoviesAreOffered)
{
    machine.putVideo("a.mp4");
    open({});
    QPushButton& add = *sheet->findChild<StarterPane*>()->buttons().first();
    ASSERT_TRUE(waitUntil([&add] { return add.isVisible(); }));
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(listed(), QStringList());
}

TEST_F(ConfigSheetStarterTest, offers_areLookedForAnew_whenTheSheetOpensAgain)
{
    open({});
    sheet->reject();
    machine.putVideo("a.mp4");
    sheet->open();
    QPushButton& add = *sheet->findChild<StarterPane*>()->buttons().first();
    EXPECT_TRUE(waitUntil([&add] { return add.isVisible(); }));
}

} // namespace kestro
