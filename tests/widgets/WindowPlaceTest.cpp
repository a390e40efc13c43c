#include "widgets/WindowPlace.h"

#include <QDialog>

#include <gtest/gtest.h>

namespace kestro {

namespace {

/// A dialog over a window, which by itself comes in that one's middle.
class WindowPlaceTest : public testing::Test {
protected:
    WindowPlaceTest()
    {
        window.setGeometry(100, 100, 400, 300);
        dialog.resize(200, 100);
        window.show();
        dialog.show();
    }
    void showAgain()
    {
        dialog.hide();
        dialog.show();
    }

    QWidget window;
    QDialog dialog{&window};
    WindowPlace place{dialog};
};

} // namespace

TEST_F(WindowPlaceTest, window_comesBackWhereItWas)
{
    const QRect moved(20, 30, 250, 120);
    dialog.setGeometry(moved);
    dialog.setAttribute(Qt::WA_Moved, false); // as where a person moved it
    showAgain();
    EXPECT_EQ(dialog.geometry(), moved);
}

TEST_F(WindowPlaceTest, window_comesAsANewOneDoes_whenItsScreenHasGone)
{
    const QRect first = dialog.geometry();
    dialog.setGeometry(5000, 5000, 200, 100);
    dialog.setAttribute(Qt::WA_Moved, false);
    showAgain();
    EXPECT_EQ(dialog.geometry(), first);
}

TEST_F(WindowPlaceTest, window_isAsLargeAsTheScreenAgain_whenItWas)
{
    dialog.setWindowState(Qt::WindowMaximized);
    const QRect large = dialog.geometry();
    showAgain();
    EXPECT_EQ(dialog.geometry(), large);
    dialog.setWindowState(Qt::WindowNoState);
    EXPECT_EQ(dialog.size(), QSize(200, 100));
}

} // namespace kestro
