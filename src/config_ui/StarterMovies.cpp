#include "config_ui/StarterMovies.h"

#include "config_ui/MovieNames.h"
#include "config_ui/ThemeBrowser.h"
#include "platform/base/Paths.h"
#include "settings/Playlist.h"

#include <QDir>
#include <QStandardPaths>

#include <utility>

namespace kestro {

namespace {

QStringList themeMovies(QStringList files)
{
    files.removeIf([](const QString& file) { return !isThemeMovie(file); });
    files.sort();
    return files;
}

} // namespace

StarterMovies::StarterMovies(Found found, std::chrono::milliseconds longest)
    : m_found(std::move(found))
    , m_longest(longest)
{
}

// Where nobody has set up folders, the one of videos may be the home folder itself.
QString StarterMovies::videosFolder()
{
    const QString folder = QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::MoviesLocation));
    return folder == QDir::homePath() ? QString() : folder;
}

void StarterMovies::look()
{
    m_ofPerson.reset();
    if (const QString folder = videosFolder(); !folder.isEmpty())
        m_ofPerson = FileWalk::start({folder}, m_longest, [this](const FileWalk::Found& found) {
            m_found(Videos, calledAsMovies(found.files.first()));
        });
    m_intros = {platformPath(defalutMovieURL), platformPath(defalutMovieURL_104)};
    m_ofPackage = FileWalk::start(QStringList{platformPath(dvdProgram)} + m_intros, m_longest,
                                  [this](const FileWalk::Found& found) { takeOfPackage(found); });
}

void StarterMovies::takeOfPackage(const FileWalk::Found& found)
{
    QStringList intro;
    for (qsizetype i = 0; i < m_intros.size() && intro.isEmpty(); ++i)
        if (found.files[i + 1] == QStringList{m_intros[i]}) intro.append(m_intros[i]);
    m_found(Themes, themeMovies(found.files.first()));
    m_found(Intro, intro);
}

} // namespace kestro
