#include "config_ui/HoursPanel.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTimeEdit>

#include <gtest/gtest.h>

namespace kestro {

static QList<QTimeEdit*> fields(const HoursPanel& panel)
{
    return panel.findChildren<QTimeEdit*>();
}

TEST(HoursPanel, fields_showTheHours)
{
    const PlayTime hours{PlayTime::Kind::Hours, 22 * 60 + 30, 6 * 60};
    const HoursPanel panel(hours, nullptr);
    EXPECT_EQ(fields(panel)[0]->time(), QTime(22, 30));
    EXPECT_EQ(fields(panel)[1]->time(), QTime(6, 0));
    EXPECT_EQ(panel.hours(), hours);
}

TEST(HoursPanel, hours_areThoseOfTheFields)
{
    const HoursPanel panel({.kind = PlayTime::Kind::Night}, nullptr);
    fields(panel)[0]->setTime(QTime(8, 15));
    fields(panel)[1]->setTime(QTime(9, 0));
    EXPECT_EQ(panel.hours(), (PlayTime{PlayTime::Kind::Hours, 495, 540}));
}

TEST(HoursPanel, hoursThatEndWhenTheyBegin_cannotBeTaken)
{
    const HoursPanel panel({}, nullptr);
    const auto* const ok = panel.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    EXPECT_TRUE(ok->isEnabled());
    fields(panel)[0]->setTime(fields(panel)[1]->time());
    EXPECT_FALSE(ok->isEnabled());
    fields(panel)[0]->setTime(QTime(1, 0));
    EXPECT_TRUE(ok->isEnabled());
}

} // namespace kestro
