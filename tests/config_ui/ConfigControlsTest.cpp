#include "config_ui/ConfigControls.h"

#include <gtest/gtest.h>
#include <limits>

namespace kestro {

TEST(ConfigControls, fieldText_isTheShortestDecimalText)
{
    EXPECT_EQ(fieldText(4.0F), "4");
    EXPECT_EQ(fieldText(0.1F), "0.1");
    EXPECT_EQ(fieldText(-2.5F), "-2.5");
    EXPECT_EQ(fieldText(0.0F), "0");
    EXPECT_EQ(fieldText(100000.0F), "100000");
}

TEST(ConfigControls, fieldText_neverHasAnExponent)
{
    for (const float value : {1e20F, 1e-7F, std::numeric_limits<float>::max(),
                              std::numeric_limits<float>::min(), std::numeric_limits<float>::denorm_min()}) {
        EXPECT_FALSE(fieldText(value).contains(u'e')) << value;
        EXPECT_EQ(fieldText(value).toFloat(), value);
    }
}

TEST(ConfigControls, fieldText_isZero_forWhatIsNoNumber)
{
    EXPECT_EQ(fieldText(std::numeric_limits<float>::infinity()), "0");
    EXPECT_EQ(fieldText(std::numeric_limits<float>::quiet_NaN()), "0");
}

} // namespace kestro
