#include "platform/movie/MovieTeardown.h"

#include <QGuiApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication application(argc, argv);
    testing::InitGoogleTest(&argc, argv);
    const int failed = RUN_ALL_TESTS();
    kestro::finishMovieTeardown();
    return failed;
}
