// The fields of the sheet that hold numbers, and the slider.

#include "config_ui/ConfigSheetFixture.h"

#include <QLabel>
#include <QSlider>

namespace kestro {

namespace {

class ConfigSheetNumbersTest : public ConfigSheetFixture {};

} // namespace

TEST_F(ConfigSheetNumbersTest, interval_takesNumbersWithAPointOrAComma)
{
    open({}, {{"FullScreenMode", "0"}});
    type("timeIntervalField", "2,5x");
    EXPECT_EQ(textOf("timeIntervalField"), "2.5");
    EXPECT_EQ(sheet->model().controls().timeIntervalField, "2.5");
}

TEST_F(ConfigSheetNumbersTest, fields_haveTheDecimalSignOfTheLanguage_andThePointIsStored)
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    open({}, {{"FullScreenMode", "0"}, {"Interval", "2.5"}, {"Scale", "0.75"}});
    EXPECT_EQ(textOf("timeIntervalField"), "2,5");
    EXPECT_EQ(textOf("scaleField"), "0,75");
    type("timeIntervalField", "3.25");
    EXPECT_EQ(textOf("timeIntervalField"), "3,25");
    EXPECT_EQ(sheet->model().controls().timeIntervalField, "3.25");
    type("scaleField", "1,5");
    EXPECT_EQ(sheet->model().controls().scaleSlider, 1.5F);
    QTest::keyClick(&control<QLineEdit>("scaleField"), Qt::Key_Tab);
    EXPECT_EQ(textOf("scaleField"), "1,5");
    QLocale::setDefault(before);
}

TEST_F(ConfigSheetNumbersTest, scale_isOneForSliderAndField)
{
    open({}, {{"FullScreenMode", "0"}});
    control<QSlider>("scaleSlider").setValue(75);
    EXPECT_EQ(textOf("scaleField"), "0.75");
    type("scaleField", "1.25");
    EXPECT_EQ(control<QLineEdit>("scaleField").text(), "1.25");
    EXPECT_EQ(sheet->model().controls().scaleSlider, 1.25F);
    QTest::keyClick(&control<QLineEdit>("scaleField"), Qt::Key_Tab);
    EXPECT_EQ(control<QSlider>("scaleSlider").value(), 125);
}

TEST_F(ConfigSheetNumbersTest, slider_goesFromATenthToThreeTimes)
{
    open({}, {{"FullScreenMode", "0"}});
    widget("scaleSlider").setFocus();
    QTest::keyClick(&widget("scaleSlider"), Qt::Key_Home);
    EXPECT_EQ(sheet->model().controls().scaleSlider, 0.1F);
    QTest::keyClick(&widget("scaleSlider"), Qt::Key_End);
    EXPECT_EQ(sheet->model().controls().scaleSlider, 3.0F);
}

TEST_F(ConfigSheetNumbersTest, scale_goesBack_whenTheFieldHoldsNone)
{
    open({}, {{"FullScreenMode", "0"}, {"Scale", "0.5"}});
    type("scaleField", "0");
    QTest::keyClick(&control<QLineEdit>("scaleField"), Qt::Key_Tab);
    EXPECT_EQ(textOf("scaleField"), "0.5");
    EXPECT_EQ(sheet->model().controls().scaleSlider, 0.5F);
}

TEST_F(ConfigSheetNumbersTest, scale_goesBack_whenTheFieldIsEmpty)
{
    open({}, {{"FullScreenMode", "0"}, {"Scale", "0.5"}});
    control<QLineEdit>("scaleField").setFocus();
    control<QLineEdit>("scaleField").selectAll();
    QTest::keyClick(&control<QLineEdit>("scaleField"), Qt::Key_Delete);
    QTest::keyClick(&control<QLineEdit>("scaleField"), Qt::Key_Tab);
    EXPECT_EQ(textOf("scaleField"), "0.5");
    EXPECT_EQ(sheet->model().controls().scaleSlider, 0.5F);
}

TEST_F(ConfigSheetNumbersTest, scale_staysBetweenTheSlidersEnds_whatIsStored)
{
    for (const auto& [stored, shown] :
         {std::pair("12.5", "3"), std::pair("0.01", "0.1"), std::pair("-2", "0.1"),
          std::pair("21474837", "3"), std::pair("1e30", "3")}) {
        open({}, {{"FullScreenMode", "0"}, {"Scale", stored}});
        EXPECT_EQ(textOf("scaleField"), shown) << stored;
        EXPECT_EQ(control<QSlider>("scaleSlider").value() / 100.0F, sheet->model().controls().scaleSlider);
    }
}

TEST_F(ConfigSheetNumbersTest, scale_staysBetweenTheSlidersEnds_whatIsTyped)
{
    open({}, {{"FullScreenMode", "0"}});
    for (const auto& [typed, shown] : {std::pair("12345678", "3"), std::pair("0.05", "0.1")}) {
        type("scaleField", typed);
        EXPECT_EQ(textOf("scaleField"), typed);
        EXPECT_EQ(control<QSlider>("scaleSlider").value() / 100.0F, sheet->model().controls().scaleSlider);
        QTest::keyClick(&control<QLineEdit>("scaleField"), Qt::Key_Tab);
        EXPECT_EQ(textOf("scaleField"), shown);
    }
}

TEST_F(ConfigSheetNumbersTest, interval_saysWhatNoTimeMeans)
{
    open({}, {{"FullScreenMode", "0"}, {"Interval", "0"}});
    const auto word = [this] { return control<QLabel>("secondsLabel").text(); };
    EXPECT_EQ(word(), "seconds: all the time");
    type("timeIntervalField", "2");
    EXPECT_EQ(word(), "seconds");
    control<QLineEdit>("timeIntervalField").selectAll();
    QTest::keyClick(&control<QLineEdit>("timeIntervalField"), Qt::Key_Delete);
    QTest::keyClick(&control<QLineEdit>("timeIntervalField"), Qt::Key_Tab);
    EXPECT_EQ(word(), "seconds: all the time");
    EXPECT_EQ(sheet->model().controls().timeIntervalField, "");
}

} // namespace kestro
