#include "trailers/panel/LatestPanel.h"

#include "settings/MovieURL.h"
#include "trailers/panel/PanelTest.h"
#include "ui_LatestPanel.h"

#include <QDialogButtonBox>
#include <QPushButton>
#include <QTest>

namespace kestro {

namespace {

QPushButton& button(QWidget& window, QDialogButtonBox::StandardButton which)
{
    return *window.findChild<QDialogButtonBox*>()->button(which);
}

QComboBox& popup(QWidget& window)
{
    return *window.findChild<QComboBox*>(QStringLiteral("resPopup"));
}

QStringList titles(QComboBox& box)
{
    QStringList texts;
    for (int item = 0; item < box.count(); ++item)
        texts.append(box.itemText(item));
    return texts;
}

void press(QDialogButtonBox::StandardButton which)
{
    answerModal([which](QWidget& window) { button(window, which).click(); });
}

} // namespace

TEST(AutomaticEntryTest, automaticEntry_holdsTheCountAndTheTitle)
{
    EXPECT_EQ(absoluteString(*automaticEntry(6, QStringLiteral("480"))),
              QStringLiteral("auto://LatestTrailers/6/480"));
    EXPECT_EQ(absoluteString(*automaticEntry(0, QStringLiteral("1280"))),
              QStringLiteral("auto://LatestTrailers/0/1280"));
    EXPECT_EQ(absoluteString(*automaticEntry(12, QString())), QStringLiteral("auto://LatestTrailers/12/"));
}

TEST(AutomaticEntryTest, automaticEntry_isNothing_whenItMakesNoURL)
{
    EXPECT_FALSE(automaticEntry(6, QStringLiteral("4 80%")));
}

TEST(LatestPanelTest, runModal_answersTheEntry_whenOKIsPressed)
{
    LatestPanel panel;
    panel.setResolutions({QStringLiteral("320"), QStringLiteral("640")});
    answerModal([](QWidget& window) {
        window.findChild<QSpinBox*>(QStringLiteral("countField"))->setValue(12);
        popup(window).setCurrentIndex(1);
        button(window, QDialogButtonBox::Ok).click();
    });
    EXPECT_EQ(panel.runModal(), QUrl(QStringLiteral("auto://LatestTrailers/12/640")));
    EXPECT_FALSE(panel.isVisible());
}

TEST(LatestPanelTest, runModal_answersNothing_whenItIsGivenUp)
{
    LatestPanel panel;
    panel.setResolutions({QStringLiteral("320")});
    press(QDialogButtonBox::Cancel);
    EXPECT_FALSE(panel.runModal());
    answerModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Escape); });
    EXPECT_FALSE(panel.runModal());
    answerModal([](QWidget& window) { window.close(); });
    EXPECT_FALSE(panel.runModal());
}

TEST(LatestPanelTest, runModal_answersTheEntry_whenReturnIsPressed)
{
    LatestPanel panel;
    panel.setResolutions({QStringLiteral("320")});
    answerModal([](QWidget& window) { QTest::keyClick(&window, Qt::Key_Return); });
    EXPECT_EQ(panel.runModal(), QUrl(QStringLiteral("auto://LatestTrailers/6/320")));
}

TEST(LatestPanelTest, setResolutions_begins480_whereThatIsOffered)
{
    LatestPanel panel;
    panel.setResolutions({QStringLiteral("320"), QStringLiteral("480"), QStringLiteral("640")});
    EXPECT_EQ(popup(panel).currentText(), QStringLiteral("480"));
}

TEST(LatestPanelTest, setResolutions_keepsTheChoice_whereItIsStillOffered)
{
    LatestPanel panel;
    panel.setResolutions({QStringLiteral("320"), QStringLiteral("640")});
    EXPECT_EQ(popup(panel).currentText(), QStringLiteral("320"));
    popup(panel).setCurrentIndex(1);
    panel.setResolutions({QStringLiteral("480"), QStringLiteral("640")});
    EXPECT_EQ(popup(panel).currentText(), QStringLiteral("640"));
    panel.setResolutions({QStringLiteral("854"), QStringLiteral("900")});
    EXPECT_EQ(popup(panel).currentText(), QStringLiteral("854"));
}

TEST(LatestPanelTest, setResolutions_offersUsualOnes_whenThereAreNone)
{
    LatestPanel panel;
    panel.setResolutions({});
    EXPECT_EQ(titles(popup(panel)),
              (QStringList{QStringLiteral("320"), QStringLiteral("480"), QStringLiteral("640"),
                           QStringLiteral("848"), QStringLiteral("1280"), QStringLiteral("1920")}));
    EXPECT_EQ(popup(panel).currentText(), QStringLiteral("480"));
}

TEST(LatestPanelTest, countField_takesAllFromZero)
{
    LatestPanel panel;
    auto& count = *panel.findChild<QSpinBox*>(QStringLiteral("countField"));
    EXPECT_EQ(count.value(), 6);
    count.setValue(0);
    EXPECT_EQ(count.text(), QStringLiteral("All"));
}

} // namespace kestro
