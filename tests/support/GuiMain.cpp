// Runs the tests of a program inside a Qt application, as far as anything needs its event loop.

#include <QGuiApplication>

#include <clocale>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS(); // ctest asks outside the tests' environment
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
