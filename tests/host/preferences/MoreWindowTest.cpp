#include "host/preferences/MoreWindow.h"

#include "host/preferences/MoreOptions.h"
#include "host/preferences/PreferencesTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFile>
#include <QSignalSpy>

namespace kestro {

namespace {

class MoreWindowTest : public PreferencesTest {
protected:
    [[nodiscard]] QString configuration() const { return folder.filePath(QStringLiteral("kestro.conf")); }
    [[nodiscard]] QByteArray stored() const
    {
        QFile file(configuration());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void write(const QByteArray& text) const
    {
        QFile file(configuration());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    /// The window opened anew.
    MoreWindow& window()
    {
        m_window = std::make_unique<MoreWindow>(configuration(), nullptr);
        m_window->setAttribute(Qt::WA_DeleteOnClose, false);
        return *m_window;
    }
    template <typename Control>
    Control& control(const char* section, const char* key)
    {
        return *qobject_cast<Control*>(
            m_window->control(QString::fromLatin1(section), QString::fromLatin1(key)));
    }

private:
    std::unique_ptr<MoreWindow> m_window;
};

} // namespace

TEST_F(MoreWindowTest, showsTheUsual_andStoresNothing_untilSomethingIsChosen)
{
    const MoreWindow& opened = window();
    for (const auto* box : opened.findChildren<QCheckBox*>())
        EXPECT_FALSE(box->isChecked()) << qPrintable(box->text());
    for (const auto* box : opened.findChildren<QComboBox*>())
        EXPECT_EQ(box->currentData(), QStringLiteral("0")) << qPrintable(box->currentText());
    for (const auto* box : opened.findChildren<QDoubleSpinBox*>())
        EXPECT_EQ(box->text(), QStringLiteral("not known"));
    EXPECT_FALSE(QFile::exists(configuration()));
}

TEST_F(MoreWindowTest, everyOption_hasALineThatSaysWhatItDoes)
{
    const MoreWindow& opened = window();
    int options = 0;
    for (const MoreGroup& group : MoreOptions::all())
        for (const MoreOption& option : group.options) {
            ++options;
            const QWidget* const control = opened.control(option.section, option.key);
            ASSERT_NE(control, nullptr) << qPrintable(option.key);
            EXPECT_FALSE(control->accessibleDescription().isEmpty()) << qPrintable(option.key);
        }
    EXPECT_EQ(options, 11);
    EXPECT_EQ(opened.control(QStringLiteral("movies"), QStringLiteral("volume")), nullptr);
}

TEST_F(MoreWindowTest, switches_storeTheSecondWord_andTheFirstAgain)
{
    const struct {
        const char* section;
        const char* key;
        QByteArray off, on;
    } switches[] = {{"movies", "shuffle", "random", "bag"}, {"movies", "start", "beginning", "random"},
                    {"caption", "title", "no", "yes"},      {"caption", "clock", "no", "yes"},
                    {"keys", "enabled", "no", "yes"},       {"control", "bus", "no", "yes"}};
    for (const auto& [section, key, off, on] : switches) {
        write({});
        window();
        const QByteArray before = QByteArray("[") + section + "]\n" + key + "=";
        control<QCheckBox>(section, key).click();
        EXPECT_TRUE(stored().contains(before + on + "\n")) << stored().constData();
        window();
        EXPECT_TRUE(control<QCheckBox>(section, key).isChecked()) << key;
        control<QCheckBox>(section, key).click();
        EXPECT_TRUE(stored().contains(before + off + "\n")) << stored().constData();
    }
}

TEST_F(MoreWindowTest, choices_storeWhatIsChosen_besideWhatElseIsThere)
{
    write("[idle]\nafter=7\n");
    window();
    auto& longest = control<QComboBox>("movies", "longest");
    longest.setCurrentIndex(longest.findText(QStringLiteral("10 min")));
    auto& dissolve = control<QComboBox>("movies", "dissolve");
    dissolve.setCurrentIndex(dissolve.findText(QStringLiteral("2 s")));
    auto& cache = control<QComboBox>("cache", "size");
    cache.setCurrentIndex(cache.findText(QStringLiteral("2 GB")));
    EXPECT_EQ(stored(), "[idle]\nafter=7\n\n[movies]\nlongest=10\ndissolve=2\n\n[cache]\nsize=2 GB\n");
    window();
    EXPECT_EQ(control<QComboBox>("movies", "longest").currentText(), QStringLiteral("10 min"));
}

TEST_F(MoreWindowTest, aChoiceThatIsNotOffered_isShownAsItIsStored_untilAnotherIsChosen)
{
    write("[movies]\nlongest=90s\n");
    window();
    auto& longest = control<QComboBox>("movies", "longest");
    const int count = longest.count();
    EXPECT_EQ(longest.currentText(), QStringLiteral("90s"));
    longest.setCurrentIndex(0);
    EXPECT_EQ(stored(), "[movies]\nlongest=0\n");
    EXPECT_EQ(longest.count(), count - 1);
    EXPECT_EQ(longest.currentText(), QStringLiteral("At their end"));
}

TEST_F(MoreWindowTest, degrees_areStoredAsCodeReadsThem_andNothingWhereNotKnown)
{
    QLocale::setDefault(QLocale(QLocale::German));
    window();
    auto& latitude = control<QDoubleSpinBox>("place", "latitude");
    auto& longitude = control<QDoubleSpinBox>("place", "longitude");
    latitude.setValue(-33.87);
    longitude.setValue(151.21);
    EXPECT_EQ(stored(), "[place]\nlatitude=-33.87\nlongitude=151.21\n");
    window();
    EXPECT_EQ(control<QDoubleSpinBox>("place", "latitude").value(), -33.87);
    auto& again = control<QDoubleSpinBox>("place", "longitude");
    EXPECT_EQ(again.maximum(), 180);
    again.setValue(again.minimum());
    EXPECT_EQ(stored(), "[place]\nlatitude=-33.87\nlongitude=\n");
    QLocale::setDefault(QLocale::c());
}

TEST_F(MoreWindowTest, degreesThatThereAreNot_areNotKnown)
{
    for (const char* text : {"91", "-90.5", "north", ""}) {
        write(QByteArray("[place]\nlatitude=") + text + "\n");
        window();
        EXPECT_EQ(control<QDoubleSpinBox>("place", "latitude").text(), QStringLiteral("not known")) << text;
    }
}

TEST_F(MoreWindowTest, showsWhatAnotherProgramStored_onceItIsActiveAgain)
{
    MoreWindow& opened = window();
    opened.show();
    write("[caption]\nclock=yes\n");
    EXPECT_FALSE(control<QCheckBox>("caption", "clock").isChecked());
    opened.activateWindow();
    EXPECT_TRUE(waitUntil([this] { return control<QCheckBox>("caption", "clock").isChecked(); }));
}

TEST_F(MoreWindowTest, saysWhatCannotBeStored_andShowsWhatIs)
{
    ASSERT_TRUE(QDir(folder.path()).mkdir(QStringLiteral("kestro.conf")));
    QSignalSpy failures(&window(), &MoreWindow::failed);
    control<QCheckBox>("keys", "enabled").click();
    ASSERT_EQ(failures.count(), 1);
    EXPECT_FALSE(failures[0][0].toString().isEmpty());
    EXPECT_FALSE(control<QCheckBox>("keys", "enabled").isChecked());
}

} // namespace kestro
