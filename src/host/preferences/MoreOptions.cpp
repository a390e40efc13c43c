#include "host/preferences/MoreOptions.h"

#include <initializer_list>
#include <utility>

namespace kestro {

namespace {

using Kind = MoreOption::Kind;
using Values = std::vector<MoreOption::Value>;

const QString ofMovies = QStringLiteral("movies");
const QString ofCaption = QStringLiteral("caption");
const QString ofKeys = QStringLiteral("keys");
const QString ofControl = QStringLiteral("control");
const QString ofCache = QStringLiteral("cache");
const QString ofPlace = QStringLiteral("place");

constexpr double mostLatitude = 90;
constexpr double mostLongitude = 180;

MoreOption either(const QString& section, const char* key, QString title, QString explanation,
                  const char* off = "no", const char* on = "yes")
{
    return {Kind::Switch,
            section,
            QString::fromLatin1(key),
            std::move(title),
            std::move(explanation),
            {{QString::fromLatin1(off), {}}, {QString::fromLatin1(on), {}}}};
}

MoreOption choice(const QString& section, const char* key, QString title, QString explanation, Values values)
{
    return {Kind::Choice,           section,          QString::fromLatin1(key), std::move(title),
            std::move(explanation), std::move(values)};
}

MoreOption degrees(const char* key, QString title, QString explanation, double most)
{
    return {Kind::Degrees, ofPlace, QString::fromLatin1(key), std::move(title), std::move(explanation), {},
            most};
}

/// Nought, with these words for it, and `numbers` of `unit`.
Values noneOr(QString words, const QString& unit, std::initializer_list<int> numbers)
{
    Values values{{QStringLiteral("0"), std::move(words)}};
    for (const int number : numbers)
        values.push_back({QString::number(number), unit.arg(number)});
    return values;
}

Values sizes(QString none)
{
    Values values{{QStringLiteral("0"), std::move(none)}};
    for (const char* text : {"500 MB", "1 GB", "2 GB", "5 GB", "10 GB"})
        values.push_back({QString::fromLatin1(text), QString::fromLatin1(text)});
    return values;
}

} // namespace

std::vector<MoreGroup> MoreOptions::all()
{
    return {movies(), picture(), control(), place()};
}

MoreGroup MoreOptions::movies()
{
    const QString minutes = tr("%1 min", "minutes");
    const QString seconds = tr("%1 s", "seconds");
    return {tr("Movies"),
            {choice(ofMovies, "longest", tr("C&hange movies:"),
                    tr("A longer movie gives way to the next one then."),
                    noneOr(tr("At their end"), minutes, {1, 5, 10, 20, 30, 60})),
             either(ofMovies, "start", tr("Begin any&where in a movie"),
                    tr("And not at its beginning, so that long ones are seen whole in time."), "beginning",
                    "random"),
             choice(ofMovies, "dissolve", tr("&Dissolve:"), tr("One movie becomes the next one so slowly."),
                    noneOr(tr("None", "no dissolve"), seconds, {1, 2, 3, 5, 10})),
             either(ofMovies, "shuffle", tr("&Remember what was shown"),
                    tr("In random order no movie comes twice before all were seen."), "random", "bag"),
             choice(ofCache, "size", tr("&Keep movies of sites:"),
                    tr("They play from the disk the next time; the newest are fetched ahead."),
                    sizes(tr("None", "no movie is kept")))}};
}

MoreGroup MoreOptions::picture()
{
    return {tr("On the Picture"),
            {either(ofCaption, "title", tr("Show the &title"),
                    tr("In a corner that changes, with the folder or the site it is from.")),
             either(ofCaption, "clock", tr("Show the ti&me"), tr("As the clock of this desktop has it."))}};
}

MoreGroup MoreOptions::control()
{
    return {tr("Control"),
            {either(ofKeys, "enabled", tr("Ke&ys for the movie"),
                    tr("Arrows change movie and volume, i shows the title, d never plays a movie again, u "
                       "takes that back.")),
             either(ofControl, "bus", tr("&Programs may control it"),
                    tr("The desktop's media controls, and \"kestro next\" and its like."))}};
}

MoreGroup MoreOptions::place()
{
    return {
        tr("Where You Are"),
        {degrees(
             "latitude", tr("L&atitude:"),
             tr("In degrees, less than nought in the south. Tells when it is day, for what plays by day."),
             mostLatitude),
         degrees("longitude", tr("L&ongitude:"),
                 tr("In degrees, less than nought in the west. Without both day is from 7 to 19."),
                 mostLongitude)}};
}

} // namespace kestro
