#include "trailers/panel/PanelTest.h"
#include "trailers/panel/PanelWindow.h"
#include "trailers/panel/TrailerDownload.h"
#include "ui_TrailerCont.h"

#include <QFileDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProgressDialog>
#include <QPushButton>

#include <csignal>
#include <optional>
#include <sys/resource.h>

namespace kestro {

/// The panel with one trailer, the file of which is saved.
class PanelSaveTest : public PanelTest {
protected:
    PanelSaveTest()
    {
        storeTrailers(1);
        m_panel = std::make_unique<TrailerPanel>(*m_controller, m_movies, m_services);
        m_panel->setMakeFetch([this] {
            auto fetch = std::make_unique<MemoryFetch>();
            fetch->put(urlOf(0), "moving pictures");
            fetch->setHanging(m_hanging);
            ++m_fetches;
            return fetch;
        });
        m_panel->showPanel(m_receiver);
        m_panel->panel().controls().listView->selectRowAlone(0);
    }

    // Accepts the save panel with `name` in the home folder.
    void typeName(const QString& name)
    {
        answerModal([this, name](QWidget& window) {
            auto& savePanel = dynamic_cast<QFileDialog&>(window);
            savePanel.setDirectory(m_home.path());
            savePanel.selectFile(name);
            QMetaObject::invokeMethod(&savePanel, "accept");
        });
    }
    // Notes what the alert says, once the window before it has gone, and presses its button.
    void answerAlert(QStringList& seen, Qt::TextFormat& format)
    {
        answerModal([&](QWidget& window) {
            auto* box = dynamic_cast<QMessageBox*>(&window);
            if (!box || box->windowTitle() != QStringLiteral("Alert")) return answerAlert(seen, format);
            seen = {box->windowTitle(), box->text()};
            format = box->textFormat();
            box->buttons().first()->click();
        });
    }
    [[nodiscard]] QString saved() const { return m_home.filePath(QStringLiteral("mine.mov")); }

    NotingReceiver m_receiver;
    QString m_hanging;
    int m_fetches = 0;
    std::unique_ptr<TrailerPanel> m_panel;
};

TEST_F(PanelSaveTest, saveURL_writesTheWholeContents)
{
    typeName(QStringLiteral("mine.mov"));
    m_panel->panel().controls().saveBtn->click();
    EXPECT_EQ(bytesOf(saved()), QByteArray("moving pictures"));
}

TEST_F(PanelSaveTest, saveURL_asksNothing_whenNoRowIsSelected)
{
    m_panel->panel().controls().listView->clearSelection();
    m_panel->saveURL();
    EXPECT_EQ(m_fetches, 0);
}

TEST_F(PanelSaveTest, saveURL_fetchesNothing_whenTheSavePanelIsGivenUp)
{
    answerModal([](QWidget& window) { dynamic_cast<QFileDialog&>(window).reject(); });
    m_panel->saveURL();
    EXPECT_EQ(m_fetches, 0);
}

TEST_F(PanelSaveTest, saveURL_isSilent_whenTheFetchFails)
{
    list().clear();
    list().store({record("http://h/gone.mov")});
    m_panel->reloadTableView();
    m_panel->panel().controls().listView->selectRowAlone(0);
    typeName(QStringLiteral("mine.mov"));
    m_panel->saveURL();
    EXPECT_FALSE(QFile::exists(saved()));
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(m_log, QStringList(QStringLiteral("Cannot save http://h/gone.mov: no such page")));
}

/// No file of this process grows beyond a few bytes, as on a full disk.
class FullDisk final {
public:
    FullDisk()
    {
        getrlimit(RLIMIT_FSIZE, &m_before);
        m_handler = std::signal(SIGXFSZ, SIG_IGN);
        const rlimit few{5, m_before.rlim_max};
        setrlimit(RLIMIT_FSIZE, &few);
    }
    ~FullDisk()
    {
        setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit m_before = {};
    void (*m_handler)(int) = nullptr;
};

TEST_F(PanelSaveTest, saveURL_saysSoAndKeepsTheOldFile_whenTheDiskIsFull)
{
    QFile old(saved());
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    QStringList seen;
    auto format = Qt::AutoText;
    std::optional<FullDisk> disk;
    answerModal([&](QWidget& window) {
        auto& savePanel = dynamic_cast<QFileDialog&>(window);
        savePanel.setOption(QFileDialog::DontConfirmOverwrite);
        savePanel.setDirectory(m_home.path());
        savePanel.selectFile(QStringLiteral("mine.mov"));
        disk.emplace();
        answerAlert(seen, format);
        QMetaObject::invokeMethod(&savePanel, "accept");
    });
    m_panel->saveURL();
    disk.reset();
    EXPECT_EQ(bytesOf(saved()), QByteArray("old"));
    EXPECT_EQ(QDir(m_home.path()).entryList({QStringLiteral("mine*")}),
              QStringList(QStringLiteral("mine.mov")));
    EXPECT_EQ(seen.join(u'|').toStdString(), "Alert|Failed to save the movie as mine.mov.\nFile too large");
    EXPECT_EQ(format, Qt::PlainText);
    EXPECT_EQ(m_log.join(u'|').toStdString(), "Cannot save " + saved().toStdString() + ": File too large");
}

TEST_F(PanelSaveTest, saveURL_keepsTheOldFile_whenItIsCancelled)
{
    QFile old(saved());
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    m_hanging = urlOf(0);
    QString label;
    answerModal([&](QWidget& window) {
        auto& savePanel = dynamic_cast<QFileDialog&>(window);
        savePanel.setOption(QFileDialog::DontConfirmOverwrite);
        savePanel.setDirectory(m_home.path());
        savePanel.selectFile(QStringLiteral("mine.mov"));
        answerModal([&](QWidget&) {
            answerModal([&](QWidget& progress) {
                label = progress.findChild<QLabel*>()->text();
                dynamic_cast<QProgressDialog&>(progress).cancel();
            });
        });
        QMetaObject::invokeMethod(&savePanel, "accept");
    });
    m_panel->saveURL();
    EXPECT_EQ(bytesOf(saved()), QByteArray("old"));
    EXPECT_EQ(label, QStringLiteral("Saving 000.mov…"));
    EXPECT_TRUE(m_log.isEmpty());
}

TEST_F(PanelSaveTest, saveURL_showsTheNameAsItIs_whenItLooksLikeMarkup)
{
    list().clear();
    list().store({record("http://h/%3Cb%3Ez.mov")});
    m_panel->reloadTableView();
    m_panel->panel().controls().listView->selectRowAlone(0);
    m_hanging = QStringLiteral("http://h/%3Cb%3Ez.mov");
    QString text;
    auto format = Qt::AutoText;
    answerModal([&](QWidget& window) {
        auto& savePanel = dynamic_cast<QFileDialog&>(window);
        savePanel.setDirectory(m_home.path());
        savePanel.selectFile(QStringLiteral("mine.mov"));
        answerModal([&](QWidget&) {
            answerModal([&](QWidget& progress) {
                text = progress.findChild<QLabel*>()->text();
                format = progress.findChild<QLabel*>()->textFormat();
                dynamic_cast<QProgressDialog&>(progress).cancel();
            });
        });
        QMetaObject::invokeMethod(&savePanel, "accept");
    });
    m_panel->saveURL();
    EXPECT_EQ(text, QStringLiteral("Saving <b>z.mov…"));
    EXPECT_EQ(format, Qt::PlainText);
}

TEST_F(PanelSaveTest, movieFetch_bringsMoreThanAPageMayHold)
{
    QFile movie(m_home.filePath(QStringLiteral("large.mov")));
    ASSERT_TRUE(movie.open(QIODevice::WriteOnly));
    ASSERT_TRUE(movie.resize(FetchLimits().bytes + 1));
    const auto fetched = TrailerDownload::movieFetch()->fetch(QUrl::fromLocalFile(movie.fileName()));
    ASSERT_TRUE(fetched) << fetched.failure().message.toStdString();
    EXPECT_EQ(fetched.value().size(), movie.size());
}

} // namespace kestro
