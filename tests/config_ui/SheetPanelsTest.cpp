#include "config_ui/SheetPanels.h"

#include "support/WaitUntil.h"

#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// A wait over a sheet, whose person gives up as the test says.
class SheetPanelsTest : public testing::Test {
protected:
    SheetPanelsTest() { sheet.show(); }

    QProgressDialog* wait() { return sheet.findChild<QProgressDialog*>(); }
    void begin()
    {
        panels.beginWait(QStringLiteral("Looking…"), [this] {
            ++givenUp;
            panels.endWait();
        });
    }

    QWidget sheet;
    SheetPanels panels{sheet};
    int givenUp = 0;
};

} // namespace

TEST_F(SheetPanelsTest, wait_isShownOnceItTakesAWhile)
{
    begin();
    EXPECT_FALSE(wait()->isVisible());
    ASSERT_TRUE(waitUntil([this] { return wait()->isVisible(); }));
    EXPECT_EQ(wait()->labelText(), "Looking…");
    EXPECT_EQ(wait()->windowModality(), Qt::WindowModal);
}

TEST_F(SheetPanelsTest, wait_isGivenUpByItsButton)
{
    begin();
    ASSERT_TRUE(waitUntil([this] { return wait()->isVisible(); }));
    QTest::mouseClick(wait()->findChild<QPushButton*>(), Qt::LeftButton);
    EXPECT_EQ(givenUp, 1);
    EXPECT_FALSE(wait()->isVisible());
}

TEST_F(SheetPanelsTest, wait_goesAwayAtItsEnd_andNobodyHasGivenUp)
{
    begin();
    ASSERT_TRUE(waitUntil([this] { return wait()->isVisible(); }));
    panels.endWait();
    EXPECT_FALSE(wait()->isVisible());
    EXPECT_EQ(givenUp, 0);
}

} // namespace kestro
