#include "host/preferences/DoctorWindow.h"

#include "host/preferences/PreferencesTest.h"

#include <QClipboard>
#include <QFile>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>

namespace kestro {

namespace {

class DoctorWindowTest : public PreferencesTest {
protected:
    void open(const char* script) { m_window = new DoctorWindow(program(script), nullptr); }
    ~DoctorWindowTest() override { delete m_window; }

    [[nodiscard]] QString shown() const { return m_window->findChild<QPlainTextEdit*>()->toPlainText(); }
    [[nodiscard]] QPushButton* button(const QString& text) const
    {
        for (QPushButton* one : m_window->findChildren<QPushButton*>())
            if (one->text() == text) return one;
        return nullptr;
    }

    DoctorWindow* m_window = nullptr;
};

} // namespace

TEST_F(DoctorWindowTest, report_isWhatTheDoctorSays_whateverItsStatus)
{
    open("test \"$1\" = doctor && echo 'Versions: wrong'; exit 1");
    EXPECT_EQ(shown(), QStringLiteral("Looking…"));
    ASSERT_TRUE(waitUntil([this] { return shown() == u"Versions: wrong\n"; })) << qPrintable(shown());
}

TEST_F(DoctorWindowTest, copy_putsTheReportOnTheClipboard_onceItIsThere)
{
    open("echo 'Versions: fine'");
    QPushButton* const copy = button(QStringLiteral("C&opy"));
    ASSERT_NE(copy, nullptr);
    EXPECT_FALSE(copy->isEnabled());
    ASSERT_TRUE(waitUntil([copy] { return copy->isEnabled(); }));
    copy->click();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), QStringLiteral("Versions: fine\n"));
}

TEST_F(DoctorWindowTest, report_saysSo_whenTheDoctorCannotBeRunOrSaysNothing)
{
    DoctorWindow missing(QStringLiteral("/nowhere/kestro"), nullptr);
    missing.setAttribute(Qt::WA_DeleteOnClose, false);
    EXPECT_TRUE(
        missing.findChild<QPlainTextEdit*>()->toPlainText().startsWith(u"Cannot start /nowhere/kestro: "));
    open("exit 3");
    ASSERT_TRUE(waitUntil([this] { return shown() == u"Nothing could be found out."; }));
}

TEST_F(DoctorWindowTest, close_endsADoctorThatHangs)
{
    open("echo $$ > \"$(dirname \"$0\")/number\"; exec tail -f /dev/null");
    QByteArray number;
    ASSERT_TRUE(waitUntil([&] {
        QFile file(folder.filePath(QStringLiteral("number")));
        if (file.open(QIODevice::ReadOnly)) number = file.readLine();
        return number.endsWith('\n');
    }));
    const QString process = QStringLiteral("/proc/") + QString::fromLatin1(number.trimmed());
    EXPECT_TRUE(QFile::exists(process));
    delete std::exchange(m_window, nullptr);
    EXPECT_TRUE(waitUntil([&] { return !QFile::exists(process); }));
}

} // namespace kestro
