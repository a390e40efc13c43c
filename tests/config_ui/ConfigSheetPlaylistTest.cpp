// Adding and editing entries on the sheet.

#include "config_ui/ConfigSheetFixture.h"
#include "config_ui/PlaylistPane.h"
#include "config_ui/ThemePanel.h"
#include "config_ui/URLPanel.h"
#include "platform/base/ScopedEnvironment.h"
#include "support/WaitUntil.h"

#include <QDir>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>

namespace kestro {

namespace {

class ConfigSheetPlaylistTest : public ConfigSheetFixture {
protected:
    QString makeFile(const QString& name) const
    {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return file.fileName();
    }
    /// Drags these over the sheet and drops them; answers what became of them.
    Qt::DropAction drop(const QList<QUrl>& urls, Qt::DropActions possible = Qt::CopyAction)
    {
        QMimeData dropped;
        dropped.setUrls(urls);
        QDragEnterEvent enter({5, 5}, possible, &dropped, Qt::LeftButton, {});
        QDragMoveEvent move({6, 5}, possible, &dropped, Qt::LeftButton, {});
        QDropEvent event({6, 5}, possible, &dropped, Qt::LeftButton, {});
        for (QDropEvent* const step :
             {static_cast<QDropEvent*>(&enter), static_cast<QDropEvent*>(&move), &event}) {
            step->setDropAction(Qt::MoveAction);
            step->setAccepted(step == &move);
            QApplication::sendEvent(sheet.get(), step);
            if (!step->isAccepted()) return Qt::IgnoreAction;
            EXPECT_EQ(step->dropAction(), Qt::CopyAction);
        }
        return event.dropAction();
    }
    void typeURL(const QString& text)
    {
        control<QLineEdit>("urlField").selectAll();
        QTest::keyClicks(&control<QLineEdit>("urlField"), text);
    }
    URLPanel& urlPanel() { return control<URLPanel>("URLPanel"); }
};

} // namespace

TEST_F(ConfigSheetPlaylistTest, addMovie_addsWhatIsChosen_andSelectsIt)
{
    open({movie("a.mov")});
    const QString file = makeFile("b.mov");
    whenShown<QFileDialog>([&](QFileDialog& panel) {
        EXPECT_EQ(panel.fileMode(), QFileDialog::ExistingFiles);
        panel.selectFile(file);
        panel.findChild<QLineEdit*>()->setText(file);
        static_cast<QDialog&>(panel).accept();
    });
    defaults.setValue("SSLastPath", folder.path());
    click("addMovieBtn");
    EXPECT_EQ(listed(),
              (QStringList{movie("a.mov"), QUrl::fromLocalFile(file).toString(QUrl::FullyEncoded)}));
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{1});
    EXPECT_EQ(defaults.value("SSLastPath"), QDir(folder.path()).absolutePath());
}

TEST_F(ConfigSheetPlaylistTest, addMovie_remembersTheFolderOfWhatWasTaken)
{
    open({});
    ASSERT_TRUE(QDir(folder.path()).mkpath("stands"));
    ASSERT_TRUE(QDir(folder.path()).mkpath("taken"));
    const QString file = makeFile("taken/b.mov");
    defaults.setValue("SSLastPath", folder.filePath("stands"));
    whenShown<QFileDialog>([&](QFileDialog& panel) {
        panel.findChild<QLineEdit*>()->setText(file);
        panel.setDirectory(folder.filePath("stands"));
        panel.findChild<QLineEdit*>()->setText(file);
        static_cast<QDialog&>(panel).accept();
    });
    click("addMovieBtn");
    EXPECT_EQ(listed().size(), 1);
    EXPECT_EQ(defaults.value("SSLastPath"), folder.filePath("taken"));
}

TEST_F(ConfigSheetPlaylistTest, addMovie_startsWhereItWasLast_elseAmongTheMovies_elseAtHome)
{
    const ScopedEnvironment home("HOME", folder.path());
    const ScopedEnvironment configuration("XDG_CONFIG_HOME", folder.path());
    ASSERT_TRUE(QDir(folder.path()).mkpath("Videos"));
    ASSERT_TRUE(QDir(folder.path()).mkpath("last"));
    open({});
    QStringList starts;
    const auto note = [&](QFileDialog& panel) {
        starts.append(panel.directory().dirName());
        panel.reject();
    };
    whenShown<QFileDialog>(note);
    click("addMovieBtn");
    defaults.setValue("SSLastPath", folder.filePath("last"));
    whenShown<QFileDialog>(note);
    click("addMovieBtn");
    defaults.setValue("SSLastPath", folder.filePath("gone"));
    whenShown<QFileDialog>(note);
    click("addMovieBtn");
    ASSERT_TRUE(QDir(folder.path()).rmdir("Videos"));
    whenShown<QFileDialog>(note);
    click("addMovieBtn");
    EXPECT_EQ(starts, (QStringList{"Videos", "last", "Videos", QDir(folder.path()).dirName()}));
}

TEST_F(ConfigSheetPlaylistTest, addMovie_changesNothing_whenCancelled)
{
    open({movie("a.mov")});
    whenShown<QFileDialog>([](QFileDialog& panel) { panel.reject(); });
    click("addMovieBtn");
    EXPECT_EQ(listed(), QStringList{movie("a.mov")});
    EXPECT_FALSE(defaults.contains("SSLastPath"));
}

TEST_F(ConfigSheetPlaylistTest, drop_addsFiles_byTheRulesOfTheOpenPanel)
{
    open({});
    const QUrl good = QUrl::fromLocalFile(makeFile("a.mov"));
    const QUrl page = QUrl::fromLocalFile(makeFile("page.html"));
    EXPECT_EQ(drop({page, good, QUrl("http://m/x.mov")}), Qt::CopyAction);
    ASSERT_TRUE(waitUntil([this] { return !listed().isEmpty(); }));
    EXPECT_EQ(listed(), QStringList{good.toString(QUrl::FullyEncoded)});
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{0});
}

TEST_F(ConfigSheetPlaylistTest, drop_isAnsweredBeforeAnAlertOpens)
{
    open({});
    const QUrl page = QUrl::fromLocalFile(makeFile("page.html"));
    QString message;
    whenShown<QMessageBox>([&](QMessageBox& alert) {
        message = alert.text();
        alert.accept();
    });
    EXPECT_EQ(drop({page}), Qt::CopyAction);
    EXPECT_EQ(message, "");
    ASSERT_TRUE(waitUntil([&] { return !message.isEmpty(); }));
    EXPECT_EQ(message, "Invalid URL string.");
    EXPECT_TRUE(listed().isEmpty());
}

TEST_F(ConfigSheetPlaylistTest, drop_ofAFolder_addsTheMoviesInIt)
{
    open({});
    ASSERT_TRUE(QDir(folder.path()).mkpath("in/more"));
    const QStringList movies{makeFile("in/a.mov"), makeFile("in/more/b.mp4"), makeFile("in/z.webm")};
    makeFile("in/notes.txt");
    EXPECT_EQ(drop({QUrl::fromLocalFile(folder.filePath("in"))}), Qt::CopyAction);
    ASSERT_TRUE(waitUntil([this] { return !listed().isEmpty(); }));
    QStringList urls;
    for (const QString& path : movies)
        urls.append(QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded));
    EXPECT_EQ(listed(), urls);
}

TEST_F(ConfigSheetPlaylistTest, drop_ofAFolderWithoutMovies_isSaidToHaveNone)
{
    open({});
    QString message;
    whenShown<QMessageBox>([&](QMessageBox& alert) {
        message = alert.text();
        alert.accept();
    });
    EXPECT_EQ(drop({QUrl::fromLocalFile(folder.path())}), Qt::CopyAction);
    ASSERT_TRUE(waitUntil([&] { return !message.isEmpty(); }));
    EXPECT_EQ(message, "There are no movies in what was dropped.");
}

TEST_F(ConfigSheetPlaylistTest, drop_isRefused_whereThereIsNoFile)
{
    open({});
    EXPECT_EQ(drop({QUrl("http://m/a.mov")}), Qt::IgnoreAction);
}

TEST_F(ConfigSheetPlaylistTest, drop_copies_andIsRefusedWhereFilesCanOnlyBeMoved)
{
    open({});
    const QUrl file = QUrl::fromLocalFile(makeFile("a.mov"));
    EXPECT_EQ(drop({file}, Qt::CopyAction | Qt::MoveAction), Qt::CopyAction);
    EXPECT_EQ(drop({file}, Qt::MoveAction), Qt::IgnoreAction);
    ASSERT_TRUE(waitUntil([this] { return !listed().isEmpty(); }));
    QApplication::processEvents();
    EXPECT_EQ(listed().size(), 1);
}

TEST_F(ConfigSheetPlaylistTest, editor_holdsTheURL_andPutsWhatIsTyped)
{
    open({movie("a.mov"), movie("b.mov")});
    table().edit(table().model()->index(1, 0));
    auto* editor = table().viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    EXPECT_EQ(editor->text(), movie("b.mov"));
    editor->selectAll();
    QTest::keyClicks(editor, movie("page.html"));
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(listed(), (QStringList{movie("a.mov"), movie("page.html")}));
    EXPECT_TRUE(sheet->isVisible());
}

TEST_F(ConfigSheetPlaylistTest, editor_keepsWhatIsTyped_whenMoreIsLearnedOfTheMovie)
{
    open({movie("a.mov")});
    table().edit(table().model()->index(0, 0));
    auto* editor = table().viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText("http://m/half");
    Q_EMIT table().model()->dataChanged(table().model()->index(0, 0), table().model()->index(0, 0));
    EXPECT_EQ(editor->text(), "http://m/half");
}

TEST_F(ConfigSheetPlaylistTest, editor_leavesTheEntry_whenTheTextIsNoURL)
{
    open({movie("a.mov")});
    table().edit(table().model()->index(0, 0));
    auto* editor = table().viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->setText("no url");
    QTest::keyClick(editor, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_EQ(listed(), QStringList{movie("a.mov")});
}

TEST_F(ConfigSheetPlaylistTest, urlPanel_addsTheURLAndCloses)
{
    open({});
    click("addURLBtn");
    EXPECT_TRUE(urlPanel().isVisible());
    EXPECT_TRUE(urlPanel().isModal());
    typeURL("http://Example.com/a.mov");
    urlPanel().accept();
    EXPECT_FALSE(urlPanel().isVisible());
    EXPECT_EQ(listed(), QStringList{"http://Example.com/a.mov"});
}

TEST_F(ConfigSheetPlaylistTest, urlPanel_leavesTheNewRowSelectedAndTheKeysInTheTable)
{
    open({movie("0"), movie("1")});
    widget("addURLBtn").setFocus();
    click("addURLBtn");
    typeURL(movie("2"));
    urlPanel().accept();
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{2});
    EXPECT_EQ(sheet->focusWidget(), &table());
}

TEST_F(ConfigSheetPlaylistTest, urlPanel_opensWithItsTextSelected)
{
    open({});
    click("addURLBtn");
    typeURL("http://m/first.mov");
    urlPanel().reject();
    click("addURLBtn");
    EXPECT_EQ(control<QLineEdit>("urlField").selectedText(), "http://m/first.mov");
    EXPECT_EQ(urlPanel().focusWidget(), &widget("urlField"));
}

TEST_F(ConfigSheetPlaylistTest, urlPanel_staysOpenAfterAnAlert_withItsText)
{
    open({});
    click("addURLBtn");
    typeURL("no url");
    urlPanel().findChild<QPushButton*>()->setFocus();
    QStringList alert;
    whenShown<QMessageBox>([&](QMessageBox& box) {
        EXPECT_TRUE(urlPanel().isVisible());
        alert = {box.windowTitle(), box.text()};
        EXPECT_EQ(box.buttons().size(), 1);
        alert.append(box.buttons().value(0)->text());
        box.accept();
    });
    urlPanel().accept();
    EXPECT_EQ(alert, (QStringList{"Alert", "Invalid URL string.", "OK"}));
    EXPECT_TRUE(urlPanel().isVisible());
    EXPECT_EQ(control<QLineEdit>("urlField").text(), "no url");
    EXPECT_EQ(urlPanel().focusWidget(), &widget("urlField"));
    typeURL("http://m/a.mov");
    urlPanel().accept();
    EXPECT_FALSE(urlPanel().isVisible());
    EXPECT_EQ(listed(), QStringList{"http://m/a.mov"});
}

TEST_F(ConfigSheetPlaylistTest, urlPanel_addsNothing_whenCancelled)
{
    open({});
    click("addURLBtn");
    typeURL("http://m/a.mov");
    urlPanel().reject();
    EXPECT_FALSE(urlPanel().isVisible());
    EXPECT_TRUE(listed().isEmpty());
}

TEST_F(ConfigSheetPlaylistTest, trailers_areShownForTheSheet)
{
    open({});
    click("trailersBtn");
    ASSERT_NE(trailers.shownFor, nullptr);
    trailers.shownFor->addURLList({QUrl("auto://LatestTrailers/6/480")});
    EXPECT_EQ(listed(), QStringList{"auto://LatestTrailers/6/480"});
}

TEST_F(ConfigSheetPlaylistTest, trailers_areSelectedOnceTheyAreAdded)
{
    open({movie("0"), movie("1")});
    click("trailersBtn");
    trailers.shownFor->addURLList({QUrl(movie("2")), QUrl(movie("3"))});
    EXPECT_EQ(sheet->playlist().selectedRows(), (QList<int>{2, 3}));
    trailers.shownFor->addURLList({});
    EXPECT_EQ(sheet->playlist().selectedRows(), (QList<int>{2, 3}));
}

TEST_F(ConfigSheetPlaylistTest, emptyList_saysWhatToDo)
{
    open({});
    const auto& hint = *table().viewport()->findChild<QLabel*>();
    EXPECT_TRUE(hint.isVisible());
    EXPECT_EQ(hint.size(), table().viewport()->size());
    EXPECT_EQ(hint.text(), "Add movies with the buttons below, or drop files and folders here.");
    sheet->model().addURLList({QUrl(movie("0"))});
    EXPECT_FALSE(hint.isVisible());
}

TEST_F(ConfigSheetPlaylistTest, themeMovies_areForMachinesThatHaveThem)
{
    const ScopedEnvironment root("KESTRO_ROOT", folder.path());
    open({});
    EXPECT_FALSE(isEnabled("idvdBtn"));
    ASSERT_TRUE(QDir(folder.path()).mkpath("Applications/iDVD.app"));
    open({});
    click("idvdBtn");
    auto& panel = *qobject_cast<ThemePanel*>(QApplication::activeModalWidget());
    EXPECT_EQ(panel.parentWidget(), sheet.get());
    click("idvdBtn");
    EXPECT_EQ(QApplication::activeModalWidget(), &panel);
    sheet->reject();
    EXPECT_FALSE(panel.isVisible());
}

TEST_F(ConfigSheetPlaylistTest, themeMovies_areSelectedOnceTheyAreAdded)
{
    const ScopedEnvironment root("KESTRO_ROOT", folder.path());
    const QString themes = folder.filePath("Applications/iDVD.app/Contents/Resources");
    ASSERT_TRUE(QDir().mkpath(themes));
    for (const char* name : {"/a.mov", "/b.mov"})
        QFile(themes + name).open(QFile::WriteOnly);
    open({movie("0")});
    click("idvdBtn");
    auto& panel = *qobject_cast<ThemePanel*>(QApplication::activeModalWidget());
    panel.reject();
    EXPECT_EQ(sheet->playlist().selectedRows(), QList<int>{0});
    click("idvdBtn");
    panel.findChild<QTableView*>()->selectAll();
    panel.accept();
    EXPECT_EQ(listed().size(), 3);
    EXPECT_EQ(sheet->playlist().selectedRows(), (QList<int>{1, 2}));
    EXPECT_EQ(sheet->focusWidget(), &table());
}

TEST_F(ConfigSheetPlaylistTest, entriesWithoutAMovie_areNotLookedInto)
{
    open({movie("page.html"), movie("a.swf"), "auto://LatestTrailers/6/480", movie("z.mov")});
    ASSERT_TRUE(waitUntil([this] { return !looked().isEmpty(); }));
    EXPECT_EQ(looked(), QList<QUrl>{QUrl(movie("z.mov"))});
}

TEST_F(ConfigSheetPlaylistTest, movies_areLookedIntoWhereTheyAreInSightOnly)
{
    QStringList many;
    for (int i = 0; i < 10000; ++i)
        many.append(movie(QString::number(i)));
    open(many);
    const auto lookedAt = [this](int row) { return looked().contains(QUrl(movie(QString::number(row)))); };
    ASSERT_TRUE(waitUntil([&] { return lookedAt(table().rowAt(table().viewport()->height() - 1)); }));
    EXPECT_LT(looked().size(), 100);
    table().scrollToBottom();
    ASSERT_TRUE(waitUntil([&] { return lookedAt(9999); }));
    EXPECT_LT(looked().size(), 200);
    EXPECT_FALSE(lookedAt(5000));
}

} // namespace kestro
