// OK and Cancel of the sheet.

#include "config_ui/ConfigSheetFixture.h"
#include "config_ui/SSController.h"
#include "config_ui/URLPanel.h"
#include "platform/plist/PropertyList.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTranslator>

namespace kestro {

namespace {

class ConfigSheetCloseTest : public ConfigSheetFixture {
protected:
    void press(QDialogButtonBox::StandardButton button)
    {
        control<QDialogButtonBox>("buttons").button(button)->click();
    }
    QVariantMap stored()
    {
        return readPropertyListDictionary(saver.store().plistPath()).value_or(QVariantMap());
    }
};

} // namespace

TEST(SSController, answers_neitherAnInstanceNorASheet)
{
    EXPECT_EQ(SSController::sharedSSController(), nullptr);
    EXPECT_EQ(SSController().configWin(), nullptr);
}

TEST_F(ConfigSheetCloseTest, sheet_isModalOverItsWindow)
{
    open({});
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    EXPECT_EQ(sheet->parentWidget(), &window);
}

TEST_F(ConfigSheetCloseTest, ok_changesNoLetterOfAnEntry_whereNothingWasEdited)
{
    const QStringList entries{"http://Example.COM/a.mov", "http://example.com/a.mov", "auto://Anything/3/640",
                              "file:///Films/B%c3%bc.mov"};
    open(entries);
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(stored()["FileList"].toStringList(), entries);
}

TEST_F(ConfigSheetCloseTest, ok_storesAndTells)
{
    open({movie("a.mov")});
    QSignalSpy accepted(sheet.get(), &QDialog::accepted);
    click("soundChk");
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(accepted.size(), 1);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(stored()["SoundOn"], "1");
    EXPECT_EQ(stored()["FileList"], QVariantList{movie("a.mov")});
    EXPECT_EQ(calls, (Calls{"loop 1", "reset", "close trailers"}));
}

TEST_F(ConfigSheetCloseTest, ok_isTheReturnKey)
{
    open({});
    control<QWidget>("soundChk").setFocus();
    QTest::keyClick(&control<QWidget>("soundChk"), Qt::Key_Return);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(stored()["Ver"], "5");
}

TEST_F(ConfigSheetCloseTest, sheet_opensWithTheKeysInTheTable_whereverItWasClosed)
{
    open({movie("a.mov")});
    EXPECT_EQ(sheet->focusWidget(), &widget("playListView"));
    auto& cancel = *control<QDialogButtonBox>("buttons").button(QDialogButtonBox::Cancel);
    cancel.setFocus();
    cancel.click();
    sheet->open();
    EXPECT_EQ(sheet->focusWidget(), &widget("playListView"));
    QTest::keyClick(&widget("playListView"), Qt::Key_Return);
    EXPECT_EQ(stored()["Ver"], "5");
}

TEST_F(ConfigSheetCloseTest, returnKey_pressesTheButtonThatHasTheFocus)
{
    open({movie("a.mov"), movie("b.mov")});
    widget("deleteBtn").setFocus();
    QTest::keyClick(&widget("deleteBtn"), Qt::Key_Return);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(listed(), QStringList{movie("b.mov")});
}

TEST_F(ConfigSheetCloseTest, cancel_throwsAwayWhatIsBeingTyped)
{
    open({movie("a.mov")});
    auto& table = control<QTableView>("playListView");
    table.edit(table.model()->index(0, 0));
    table.viewport()->findChild<QLineEdit*>()->setText(movie("b.mov"));
    sheet->reject();
    QApplication::processEvents();
    EXPECT_EQ(listed(), QStringList{movie("a.mov")});
}

TEST_F(ConfigSheetCloseTest, cancel_storesNothing_andGoesBack)
{
    open({movie("a.mov")});
    QSignalSpy rejected(sheet.get(), &QDialog::rejected);
    click("soundChk");
    sheet->model().addURLList({QUrl(movie("b.mov"))});
    press(QDialogButtonBox::Cancel);
    EXPECT_EQ(rejected.size(), 1);
    EXPECT_FALSE(sheet->isVisible());
    EXPECT_FALSE(QFile::exists(saver.store().plistPath()));
    EXPECT_EQ(calls, Calls{"close trailers"});
    sheet->open();
    EXPECT_FALSE(control<QAbstractButton>("soundChk").isChecked());
    EXPECT_EQ(listed(), QStringList{movie("a.mov")});
}

TEST_F(ConfigSheetCloseTest, escapeAndTheWindowsClose_areCancel)
{
    open({});
    QTest::keyClick(sheet.get(), Qt::Key_Escape);
    EXPECT_EQ(calls, Calls{"close trailers"});
    open({});
    sheet->close();
    EXPECT_EQ(calls, Calls{"close trailers"});
    EXPECT_FALSE(sheet->isVisible());
}

TEST_F(ConfigSheetCloseTest, close_takesTheURLPanelAlong)
{
    open({});
    click("addURLBtn");
    sheet->reject();
    EXPECT_FALSE(control<URLPanel>("URLPanel").isVisible());
}

TEST_F(ConfigSheetCloseTest, end_closesTheTrailersThatItOpened)
{
    open({});
    sheet.reset();
    EXPECT_TRUE(calls.empty());
    open({});
    click("trailersBtn");
    sheet.reset();
    EXPECT_EQ(calls, Calls{"close trailers"});
}

TEST_F(ConfigSheetCloseTest, ok_alertsOfASlideSaver_overTheWindowAfterTheSheet)
{
    saver.backSavers = {"/s/Five.slideSaver"};
    open({movie("a.mov")}, {{"FullScreenMode", "0"}});
    control<QComboBox>("backSaverPopup").setCurrentIndex(1);
    QStringList alert;
    whenShown<QMessageBox>([&](QMessageBox& box) {
        EXPECT_FALSE(sheet->isVisible());
        EXPECT_EQ(box.parentWidget(), &window);
        EXPECT_FALSE(QFile::exists(saver.store().plistPath()));
        alert = {box.windowTitle(), box.text(), box.buttons().value(0)->text()};
        box.accept();
    });
    press(QDialogButtonBox::Ok);
    EXPECT_EQ(alert, (QStringList{"Alert",
                                  "You selected '.slideSaver'. \nYou may need to restart 'System "
                                  "Preferences.app' to take effect properly.",
                                  "OK"}));
    EXPECT_EQ(stored()["BackSaver"], "/s/Five.slideSaver");
}

TEST_F(ConfigSheetCloseTest, alert_isInTheUsersLanguage)
{
    class Translator final : public QTranslator {
        [[nodiscard]] bool isEmpty() const override { return false; }
        [[nodiscard]] QString translate(const char* context, const char* text, const char*,
                                        int) const override
        {
            return QString::fromLatin1(context) == "Kestro" ? QString::fromUtf8(text) + u'!' : QString();
        }
    };
    Translator translator;
    QCoreApplication::installTranslator(&translator);
    open({});
    QStringList alert;
    whenShown<QMessageBox>([&](QMessageBox& box) {
        alert = {box.windowTitle(), box.text(), box.buttons().value(0)->text()};
        box.accept();
    });
    EXPECT_FALSE(sheet->model().closeURLPanel(1, "no url"));
    EXPECT_EQ(alert, (QStringList{"Alert!", "Invalid URL string.!", "OK!"}));
}

} // namespace kestro
