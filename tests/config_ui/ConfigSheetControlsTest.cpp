// What the controls of the sheet show, and which of them can be used.

#include "config_ui/ConfigSheetFixture.h"
#include "config_ui/RQTableViewRowMove.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QSlider>
#include <QTranslator>
#include <QtTest/qtestspontaneevent.h>

namespace kestro {

namespace {

class ConfigSheetControlsTest : public ConfigSheetFixture {
protected:
    bool isOn(const char* name) { return control<QAbstractButton>(name).isChecked(); }
    const std::vector<const char*> fullScreenModes{"playModeFit", "playModeStretch", "playModeEnlarge"};
    const std::vector<const char*> partialModes{"partialModeFly", "partialModeBounce", "scaleSlider",
                                                "scaleField",     "fadeoutChk",        "backSaverPopup"};
    const std::vector<const char*> flyModes{"timeIntervalField", "reposInterval", "reposMovieEnd"};

    void expectEnabled(const std::vector<const char*>& names, bool enabled)
    {
        for (const char* name : names)
            EXPECT_EQ(isEnabled(name), enabled) << name;
    }
};

/// Another language, of long words.
class ShoutingTranslator final : public QTranslator {
public:
    explicit ShoutingTranslator(int length = 1)
        : m_length(length)
    {
        QCoreApplication::installTranslator(this);
    }

    [[nodiscard]] bool isEmpty() const override { return false; }
    [[nodiscard]] QString translate(const char*, const char* text, const char*, int) const override
    {
        return QString::fromUtf8(text).toUpper().repeated(m_length);
    }

private:
    int m_length;
};

} // namespace

TEST_F(ConfigSheetControlsTest, controls_showTheSettings)
{
    saver.backSavers = {"/s/A.saver", "/s/B.saver"};
    open({movie("a.mov")}, {{"SoundOn", "1"},
                            {"FullScreenMode", "0"},
                            {"PlayMode", "2"},
                            {"PartialMode", "1"},
                            {"Scale", "0.350000"},
                            {"Interval", "2.5"},
                            {"Reposition", "1"},
                            {"RandomMode", "1"},
                            {"Continue", "1"},
                            {"Fadeout", "1"},
                            {"BackAndForth", "1"},
                            {"BackSaver", "/s/B.saver"}});
    for (const char* name : {"soundChk", "playModeEnlarge", "partialModeBounce", "reposMovieEnd", "randomChk",
                             "continueChk", "fadeoutChk", "backAndForthChk"})
        EXPECT_TRUE(isOn(name)) << name;
    EXPECT_FALSE(isOn("fullScreenChk"));
    EXPECT_EQ(textOf("timeIntervalField"), "2.5");
    EXPECT_EQ(textOf("scaleField"), "0.35");
    EXPECT_EQ(control<QSlider>("scaleSlider").value(), 35);
    EXPECT_EQ(control<QComboBox>("backSaverPopup").currentText(), "B");
    EXPECT_EQ(control<QComboBox>("backSaverPopup").itemText(0), "None");
    EXPECT_EQ(control<QComboBox>("backSaverPopup").count(), 3);
}

TEST_F(ConfigSheetControlsTest, backSaverPopup_translatesItsOwnItemAlone)
{
    const ShoutingTranslator translator;
    saver.backSavers = {"/s/A.saver"};
    open({movie("a.mov")});
    EXPECT_EQ(control<QComboBox>("backSaverPopup").itemText(0), "NONE");
    EXPECT_EQ(control<QComboBox>("backSaverPopup").itemText(1), "A");
}

TEST_F(ConfigSheetControlsTest, backSaverPopup_tellsWhereEachSaverLies)
{
    saver.backSavers = {"/one/B.saver", "/two/B.saver"};
    open({});
    const auto tip = [this](int item) {
        return control<QComboBox>("backSaverPopup").itemData(item, Qt::ToolTipRole).toString();
    };
    EXPECT_EQ((QStringList{tip(0), tip(1), tip(2)}), (QStringList{"", "/one/B.saver", "/two/B.saver"}));
}

TEST_F(ConfigSheetControlsTest, sheet_fitsOnTheScreen_whateverTheLengthOfItsTexts)
{
    const QSize room = window.screen()->availableSize();
    open({});
    const auto& options = control<QScrollArea>("optionsArea");
    EXPECT_FALSE(options.horizontalScrollBar()->isVisible());
    EXPECT_GT(options.x(), widget("playlistGroup").geometry().right());
    const ShoutingTranslator translator(2);
    open({});
    EXPECT_LE(sheet->width(), room.width());
    EXPECT_LE(sheet->height(), room.height());
    EXPECT_GT(widget("optionsArea").y(), widget("playlistGroup").geometry().bottom());
    EXPECT_FALSE(control<QScrollArea>("optionsArea").horizontalScrollBar()->isVisible());
}

TEST_F(ConfigSheetControlsTest, radioGroups_showNoButton_forNumbersThatNoneStandsFor)
{
    open({}, {{"PlayMode", "7"}, {"FullScreenMode", "0"}, {"PartialMode", "2"}, {"Reposition", "-1"}});
    for (const char* name : {"playModeFit", "playModeStretch", "playModeEnlarge", "partialModeFly",
                             "partialModeBounce", "reposInterval", "reposMovieEnd"})
        EXPECT_FALSE(isOn(name)) << name;
    click("partialModeBounce");
    EXPECT_TRUE(isOn("partialModeBounce"));
    EXPECT_EQ(sheet->model().controls().partialModeRadio, 1);
}

TEST_F(ConfigSheetControlsTest, radioGroups_showNoButtonAgain_afterCancel)
{
    open({}, {{"FullScreenMode", "0"}, {"PartialMode", "2"}});
    click("partialModeBounce");
    sheet->reject();
    EXPECT_FALSE(isOn("partialModeFly") || isOn("partialModeBounce"));
    EXPECT_EQ(sheet->model().controls().partialModeRadio, 2);
    click("partialModeFly");
    EXPECT_TRUE(isOn("partialModeFly"));
}

TEST_F(ConfigSheetControlsTest, fullScreen_leavesThePlayModeAlone_whenTheSheetOpens)
{
    open({movie("a.mov")}, {{"FullScreenMode", "1"}});
    expectEnabled(fullScreenModes, true);
    expectEnabled(partialModes, false);
    expectEnabled(flyModes, false);
}

TEST_F(ConfigSheetControlsTest, fullScreen_switchesWhatCanBeUsed)
{
    open({movie("a.mov")}, {{"FullScreenMode", "1"}});
    click("fullScreenChk");
    expectEnabled(fullScreenModes, false);
    expectEnabled(partialModes, true);
    expectEnabled(flyModes, true);
    click("fullScreenChk");
    expectEnabled(fullScreenModes, true);
    expectEnabled(partialModes, false);
    expectEnabled(flyModes, false);
}

TEST_F(ConfigSheetControlsTest, interval_canBeSetWhileFlyingOnly)
{
    open({movie("a.mov")}, {{"FullScreenMode", "0"}, {"PartialMode", "1"}});
    expectEnabled(flyModes, false);
    click("partialModeFly");
    EXPECT_TRUE(isOn("partialModeFly"));
    expectEnabled(flyModes, true);
    click("partialModeBounce");
    expectEnabled(flyModes, false);
    expectEnabled(partialModes, true);
}

TEST_F(ConfigSheetControlsTest, everyOtherControl_canAlwaysBeUsed)
{
    for (const char* fullScreen : {"0", "1"}) {
        open({}, {{"FullScreenMode", fullScreen}});
        expectEnabled({"soundChk", "fullScreenChk", "randomChk", "continueChk", "playListView", "addMovieBtn",
                       "addURLBtn", "trailersBtn"},
                      true);
    }
}

TEST_F(ConfigSheetControlsTest, backAndForth_isForOneEntryOnly)
{
    open({movie("a.mov")}, {{"BackAndForth", "1"}});
    EXPECT_TRUE(isEnabled("backAndForthChk") && isOn("backAndForthChk"));
    sheet->model().addURLList({QUrl(movie("b.mov"))});
    EXPECT_FALSE(isEnabled("backAndForthChk") || isOn("backAndForthChk"));
    sheet->model().deleteMovie({0});
    EXPECT_TRUE(isEnabled("backAndForthChk"));
    EXPECT_FALSE(isOn("backAndForthChk"));
}

TEST_F(ConfigSheetControlsTest, trailers_cannotBeBrowsed_whereThereAreNone)
{
    saver.store().setPlist({});
    sheet = std::make_unique<ConfigSheet>(saver, nullptr, &window);
    EXPECT_FALSE(isEnabled("trailersBtn"));
}

TEST_F(ConfigSheetControlsTest, controls_areTakenIntoTheModel)
{
    saver.backSavers = {"/s/A.saver"};
    open({movie("a.mov")}, {{"FullScreenMode", "0"}});
    for (const char* name : {"soundChk", "randomChk", "continueChk", "fadeoutChk", "backAndForthChk",
                             "reposMovieEnd", "partialModeBounce"})
        click(name);
    control<QComboBox>("backSaverPopup").setCurrentIndex(1);
    control<QSlider>("scaleSlider").setValue(150);
    click("fullScreenChk");
    click("playModeStretch");
    EXPECT_EQ(sheet->model().controls(), (ConfigControls{.soundChk = true,
                                                         .fullScreenChk = true,
                                                         .playModeRadio = 1,
                                                         .partialModeRadio = 1,
                                                         .scaleSlider = 1.5F,
                                                         .timeIntervalField = "4",
                                                         .reposRadio = 1,
                                                         .randomChk = true,
                                                         .continueChk = true,
                                                         .fadeoutChk = true,
                                                         .backAndForthChk = true,
                                                         .backSaverPopup = 1}));
}

TEST_F(ConfigSheetControlsTest, wheel_scrollsTheOptions_whereverItIsTurned)
{
    open({}, {{"FullScreenMode", "0"}});
    sheet->resize(sheet->width(), 200);
    QApplication::processEvents();
    QScrollBar& bar = *control<QScrollArea>("optionsArea").verticalScrollBar();
    for (const char* name : {"scaleSlider", "backSaverPopup"}) {
        const int before = control<QSlider>("scaleSlider").value();
        bar.setValue(0);
        ASSERT_GT(bar.maximum(), 0);
        QWheelEvent turn({5, 5}, widget(name).mapToGlobal(QPointF(5, 5)), {}, {0, -120}, {}, {},
                         Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&turn); // as the wheel itself sends them
        qApp->notify(&widget(name), &turn);
        EXPECT_EQ(control<QSlider>("scaleSlider").value(), before);
        EXPECT_GT(bar.value(), 0) << name;
    }
}

TEST_F(ConfigSheetControlsTest, everyControl_hasANameAndIsReachedWithTab)
{
    open({movie("a.mov")}, {{"FullScreenMode", "0"}});
    int controls = 0;
    for (QWidget* child : sheet->findChildren<QWidget*>()) {
        const auto* const button = qobject_cast<QAbstractButton*>(child);
        const bool isField = qobject_cast<QLineEdit*>(child) || qobject_cast<QSlider*>(child) ||
                             qobject_cast<QComboBox*>(child) || child == &widget("playListView");
        const bool isOfTable = child->parentWidget() == &widget("playListView");
        if (child->window() != sheet.get() || isOfTable || !(button || isField)) continue;
        ++controls;
        const QString name = button ? button->text() : child->accessibleName();
        EXPECT_FALSE(name.isEmpty()) << qPrintable(child->objectName());
        EXPECT_TRUE(child->focusPolicy() & Qt::TabFocus) << qPrintable(name);
    }
    EXPECT_GT(controls, 20);
}

TEST_F(ConfigSheetControlsTest, labels_areEachOfAControl)
{
    open({});
    for (const char* name :
         {"partialModeLabel", "reposLabel", "scaleLabel", "backSaverLabel", "secondsLabel"})
        EXPECT_NE(control<QLabel>(name).buddy(), nullptr) << name;
}

TEST_F(ConfigSheetControlsTest, tab_goesThroughTheControlsAsTheyStand)
{
    open({movie("a.mov")}, {{"FullScreenMode", "0"}});
    QStringList expected{"playListView",   "addMovieBtn",       "addURLBtn",       "deleteBtn",
                         "trailersBtn",    "idvdBtn",           "addFolderBtn",    "soundChk",
                         "randomChk",      "continueChk",       "backAndForthChk", "fullScreenChk",
                         "partialModeFly", "partialModeBounce", "reposInterval",   "timeIntervalField",
                         "reposMovieEnd",  "scaleSlider",       "scaleField",      "backSaverPopup",
                         "fadeoutChk"};
    if (!isEnabled("idvdBtn")) expected.removeAll("idvdBtn");
    EXPECT_EQ(tabStops().mid(0, expected.size()), expected);
}

TEST_F(ConfigSheetControlsTest, mnemonics_areEachOfOneControl)
{
    open({});
    QString seen;
    for (const QObject* child : sheet->findChildren<QWidget*>()) {
        const char* const property = child->inherits("QGroupBox") ? "title" : "text";
        const QString text = child->property(property).toString();
        const auto at = text.indexOf(u'&');
        if (at < 0 || qobject_cast<const QWidget*>(child)->window() != sheet.get()) continue;
        EXPECT_FALSE(seen.contains(text[at + 1], Qt::CaseInsensitive)) << qPrintable(text);
        seen += text[at + 1];
    }
    EXPECT_GT(seen.size(), 20);
}

} // namespace kestro
