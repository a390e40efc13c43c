#include "settings/BackSaverMenu.h"

#include "platform/base/Log.h"
#include "settings/SettingsInMemory.h"

#include <gtest/gtest.h>
#include <vector>

namespace kestro {

namespace {

const QString key = QStringLiteral("BackSaver");
const QStringList items{QStringLiteral("Disable"), QStringLiteral("A.saver"), QStringLiteral("B.saver"),
                        QStringLiteral("A.saver")};

class BackSaverMenuTest : public testing::Test {
protected:
    int select(const QVariant& stored)
    {
        settings->store().setPlist({{key, stored}, {QStringLiteral("Ver"), QStringLiteral("5")}});
        return selectBackSaver(settings.settings(), items);
    }
    [[nodiscard]] QVariantMap left() { return settings->store().plist(); }

    std::vector<QString> log;
    LogCapture capture{[this](const QString& line) { log.push_back(line); }};
    SettingsInMemory settings;
};

} // namespace

TEST_F(BackSaverMenuTest, items_areDisableAndTheFileNames)
{
    EXPECT_EQ(backSaverItems({}), QStringList{"Disable"});
    EXPECT_EQ(backSaverItems({"/Library/Screen Savers/A.saver", "/home/me/A.saver", "/B.slideSaver/"}),
              (QStringList{"Disable", "A.saver", "A.saver", "B.slideSaver"}));
}

TEST_F(BackSaverMenuTest, select_takesTheFirstItemOfTheStoredName)
{
    EXPECT_EQ(select("/x/A.saver"), 1);
    EXPECT_EQ(select("/home/me/Library/Screen Savers/B.saver/"), 2);
    EXPECT_EQ(left().value(key), "/home/me/Library/Screen Savers/B.saver/");
    EXPECT_TRUE(log.empty());
}

TEST_F(BackSaverMenuTest, select_takesDisable_whenNothingIsStored)
{
    settings->store().setPlist({});
    EXPECT_EQ(selectBackSaver(settings.settings(), items), 0);
    EXPECT_TRUE(log.empty());
}

TEST_F(BackSaverMenuTest, select_forgetsAStoredSaverInMemory_whenItIsNotOffered)
{
    for (const char* gone : {"/x/C.saver", "/x/a.saver", "/x/A.saver/more", "", "/"}) {
        log.clear();
        EXPECT_EQ(select(gone), 0) << gone;
        EXPECT_EQ(left(), (QVariantMap{{"Ver", "5"}})) << gone;
        EXPECT_EQ(log, std::vector<QString>{
                           QStringLiteral("The background saver is not installed any more: ") + gone});
    }
}

TEST_F(BackSaverMenuTest, select_takesAStoredSaverNamedAsTheFirstItem_asThatItem)
{
    EXPECT_EQ(select("/x/Disable"), 0);
    EXPECT_EQ(left().value(key), "/x/Disable");
}

} // namespace kestro
