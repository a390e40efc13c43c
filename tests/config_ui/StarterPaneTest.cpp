#include "config_ui/StarterPane.h"

#include "config_ui/BareMachine.h"
#include "config_ui/ConfigFixture.h"
#include "config_ui/StarterRow.h"
#include "settings/MovieURL.h"
#include "support/WaitUntil.h"

#include <QLabel>
#include <QMutex>
#include <QPushButton>

namespace kestro {

namespace {

const QImage still = [] {
    QImage made(16, 9, QImage::Format_RGB32);
    made.fill(Qt::green);
    return made;
}();

class StarterPaneTest : public ConfigFixture {
protected:
    StarterPaneTest()
    {
        for (const char* name : {"a.mp4", "b.mp4"})
            videos.append(machine.putVideo(name));
        themes = {machine.putTheme("a.mov"), machine.putTheme("b.mov"), machine.putTheme("c.mov")};
        intro = machine.putIntro();
    }

    /// The pane of a sheet that opens on the model's playlist.
    void show()
    {
        pane = std::make_unique<StarterPane>(
            *m_model, [this](const QUrl& url, const std::stop_token&) { return look(url); }, &window);
        window.show();
        pane->begin();
    }
    /// Waits until what is offered is just this, by its number.
    bool offers(const QList<StarterMovies::Kind>& kinds)
    {
        return waitUntil([&] {
            QList<StarterMovies::Kind> seen;
            for (int kind = 0; kind < StarterMovies::kindTotal; ++kind)
                if (pane->buttons()[kind]->isVisible()) seen.append(StarterMovies::Kind(kind));
            return seen == kinds && pane->isVisible() == !kinds.isEmpty();
        });
    }
    /// Adds a kind by its button, as a person does.
    void add(StarterMovies::Kind kind) { pane->buttons()[kind]->click(); }
    /// The labels of a row: its picture, its name, what is said of it.
    QLabel& label(StarterMovies::Kind kind, int number)
    {
        return *pane->buttons()[kind]->parentWidget()->findChildren<QLabel*>()[number];
    }
    QPixmap picture(StarterMovies::Kind kind) { return label(kind, 0).pixmap(Qt::ReturnByValue); }
    static QStringList urls(const QStringList& files)
    {
        QStringList texts;
        for (const QString& file : files)
            texts.append(absoluteString(QUrl::fromLocalFile(file)));
        return texts;
    }
    EntryFacts look(const QUrl& url)
    {
        const QMutexLocker lock(&m_mutex);
        m_looked.append(url.toLocalFile());
        if (broken.contains(url.toLocalFile()))
            return {.seconds = 0, .picture = {}, .fault = MovieFault{MovieFault::Kind::NoMovieFormat}};
        return {.seconds = 1, .picture = still, .fault = {}};
    }
    /// Each once: what was just read may be asked for again before that is heard.
    QStringList looked()
    {
        const QMutexLocker lock(&m_mutex);
        QStringList each = m_looked;
        each.removeDuplicates();
        return each;
    }

    BareMachine machine;
    QStringList videos;
    QStringList themes;
    QString intro;
    QStringList broken; ///< movies; set before anything is shown
    QWidget window;

private:
    QMutex m_mutex;
    QStringList m_looked;

protected:
    std::unique_ptr<StarterPane> pane; ///< last: it looks into movies until it is gone
};

using enum StarterMovies::Kind;

} // namespace

TEST_F(StarterPaneTest, emptyList_isOfferedAllThatThereIs)
{
    openList({});
    show();
    ASSERT_TRUE(offers({Videos, Themes, Intro}));
    EXPECT_EQ(label(Videos, 2).text(), "Movies found: 2");
    EXPECT_EQ(label(Themes, 2).text(), "Backgrounds that come with Kestro: 3");
    EXPECT_EQ(pane->buttons()[Videos]->parentWidget()->toolTip(), machine.home() + "/Videos");
}

TEST_F(StarterPaneTest, whatIsNotOnThisMachine_isNotOffered)
{
    for (const QString& video : videos)
        ASSERT_TRUE(QFile::remove(video));
    openList({});
    show();
    EXPECT_TRUE(offers({Themes, Intro}));
}

TEST_F(StarterPaneTest, listWithAnEntry_isOfferedNothing_untilThatIsDeleted)
{
    openList({movie("a.mov")});
    show();
    m_model->deleteMovie({0});
    EXPECT_TRUE(offers({Videos, Themes, Intro}));
    m_model->addURLList({QUrl(movie("b.mov"))});
    EXPECT_TRUE(offers({}));
}

TEST_F(StarterPaneTest, machineWithoutSettings_isOfferedWhatItsDefaultListLacks)
{
    open();
    ASSERT_EQ(listed(), urls({intro}) + QStringList{"auto://LatestTrailers/6/480"});
    show();
    EXPECT_TRUE(offers({Videos, Themes}));
    add(Themes);
    EXPECT_EQ(listed(), urls({intro}) + QStringList{"auto://LatestTrailers/6/480"} + urls(themes));
    EXPECT_TRUE(offers({}));
}

TEST_F(StarterPaneTest, defaultList_isOneThatWasChosen_onceItIsStored)
{
    open();
    show();
    ASSERT_TRUE(offers({Videos, Themes}));
    m_model->closeConfig(1);
    pane->begin();
    EXPECT_TRUE(offers({}));
}

TEST_F(StarterPaneTest, button_addsAllOfItsKind)
{
    const std::pair<StarterMovies::Kind, QStringList> kinds[] = {
        {Videos, videos}, {Themes, themes}, {Intro, {intro}}};
    for (const auto& [kind, files] : kinds) {
        openList({});
        show();
        ASSERT_TRUE(offers({Videos, Themes, Intro}));
        add(kind);
        EXPECT_EQ(listed(), urls(files));
        EXPECT_TRUE(panels.alerts.empty());
    }
}

TEST_F(StarterPaneTest, whatIsAdded_isStoredByOKAlone)
{
    openList({});
    show();
    ASSERT_TRUE(offers({Videos, Themes, Intro}));
    const QVariantMap before = saver.store().plist();
    add(Videos);
    EXPECT_EQ(saver.store().plist(), before);
    EXPECT_EQ(file(), QByteArray());
    m_model->closeConfig(0);
    EXPECT_EQ(listed(), QStringList());
    EXPECT_EQ(file(), QByteArray());
    add(Videos);
    m_model->closeConfig(1);
    EXPECT_TRUE(file().contains("a.mp4"));
}

TEST_F(StarterPaneTest, pictures_areOfTheFirstMovieThatHasOne)
{
    broken = {videos[0]};
    openList({});
    show();
    ASSERT_TRUE(waitUntil([this] {
        return !picture(Videos).isNull() && !picture(Themes).isNull() && !picture(Intro).isNull();
    }));
    EXPECT_EQ(picture(Videos).toImage().pixelColor(1, 1), QColor(Qt::green));
    QStringList expected{videos[0], videos[1], themes[0], intro};
    QStringList read = looked();
    read.sort();
    expected.sort();
    EXPECT_EQ(read, expected);
}

TEST_F(StarterPaneTest, begin_looksForWhatCameMeanwhile)
{
    openList({});
    show();
    ASSERT_TRUE(offers({Videos, Themes, Intro}));
    machine.putVideo("c.mp4");
    pane->begin();
    EXPECT_TRUE(waitUntil([this] { return label(Videos, 2).text() == "Movies found: 3"; }));
}

TEST_F(StarterPaneTest, buttons_sayWhatTheyAdd)
{
    openList({});
    show();
    ASSERT_TRUE(offers({Videos, Themes, Intro}));
    EXPECT_EQ(pane->buttons()[Videos]->accessibleName(), "Add Your Videos");
    EXPECT_EQ(pane->buttons()[Themes]->accessibleName(), "Add the Theme Movies");
    EXPECT_EQ(pane->buttons()[Intro]->accessibleName(), "Add the Intro");
    EXPECT_EQ(pane->buttons()[Themes]->accessibleDescription(), label(Themes, 2).text());
}

} // namespace kestro
