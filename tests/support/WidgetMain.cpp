// Runs the tests of a program inside a Qt application with widgets.

#include <QApplication>

#include <clocale>
#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (GTEST_FLAG_GET(list_tests)) return RUN_ALL_TESTS(); // ctest asks outside the tests' environment
    const QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    return RUN_ALL_TESTS();
}
