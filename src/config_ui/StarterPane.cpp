#include "config_ui/StarterPane.h"

#include "config_ui/ConfigModel.h"
#include "config_ui/StarterRow.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kestro {

namespace {

/// Movies that are looked into for a picture of all of them: the first may be broken, or have none.
constexpr qsizetype mostLooks = 5;

} // namespace

StarterPane::StarterPane(ConfigModel& model, const ProbeWorker::Read& read, QWidget* parent)
    : QScrollArea(parent)
    , m_model(model)
    , m_reader(read)
    , m_movies([this](Kind kind, const QStringList& files) { take(kind, files); })
{
    setObjectName(QStringLiteral("starterPane"));
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    layOut();
    connect(&m_model.playList(), &EditedPlaylist::changed, this, &StarterPane::refresh);
    connect(&m_reader, &EntryReader::learned, this, &StarterPane::showPictures);
    hide();
}

void StarterPane::layOut()
{
    auto* const content = new QWidget;
    auto* const rows = new QVBoxLayout(content);
    rows->setContentsMargins(0, 0, 0, rows->spacing());
    rows->addWidget(new QLabel(tr("Begin with one of these:"), content));
    const std::array<std::pair<QString, QString>, StarterMovies::kindTotal> texts{{
        {tr("Your videos"), tr("Add Your Videos")},
        {tr("Theme movies"), tr("Add the Theme Movies")},
        {tr("Intro"), tr("Add the Intro")},
    }};
    for (std::size_t kind = 0; kind < m_offers.size(); ++kind) {
        Offer& offer = m_offers[kind];
        offer.row = new StarterRow(texts[kind].first, texts[kind].second, content);
        rows->addWidget(offer.row);
        connect(&offer.row->button(), &QPushButton::clicked, this,
                [this, &offer] { m_model.addMovieFiles(QStringList(offer.files)); });
    }
    m_offers[StarterMovies::Videos].row->setToolTip(StarterMovies::videosFolder());
    setWidget(content);
    content->setAutoFillBackground(false); // the group's own ground
    viewport()->setAutoFillBackground(false);
}

void StarterPane::begin()
{
    m_reader.forgetFaults();
    m_isLookDue = true;
    refresh();
}

QList<QPushButton*> StarterPane::buttons() const
{
    QList<QPushButton*> found;
    for (const Offer& offer : m_offers)
        found.append(&offer.row->button());
    return found;
}

QSize StarterPane::sizeHint() const
{
    return widget()->sizeHint();
}

QSize StarterPane::minimumSizeHint() const
{
    const StarterRow& row = *m_offers.front().row;
    return {widget()->minimumSizeHint().width(), row.minimumSizeHint().height()};
}

void StarterPane::take(Kind kind, const QStringList& files)
{
    Offer& offer = m_offers[kind];
    offer.files = files;
    offer.row->setDetail(detail(kind, files.size()));
    refresh();
}

QString StarterPane::detail(Kind kind, qsizetype count)
{
    if (kind == StarterMovies::Intro) return tr("The movie that introduces Kestro");
    if (kind == StarterMovies::Themes) return tr("Backgrounds that come with Kestro: %1").arg(count);
    return tr("Movies found: %1").arg(count);
}

void StarterPane::refresh()
{
    const bool isWanted = m_model.isNothingChosen();
    if (isWanted && std::exchange(m_isLookDue, false)) m_movies.look();
    bool hasRows = false;
    for (const Offer& offer : m_offers) {
        const bool isShown = isWanted && isOffered(offer);
        offer.row->setVisible(isShown);
        hasRows = hasRows || isShown;
    }
    setVisible(hasRows);
    updateGeometry();
    showPictures();
}

bool StarterPane::isOffered(const Offer& offer) const
{
    const QList<PlaylistEntry>& listed = m_model.playList().entries();
    return std::any_of(offer.files.begin(), offer.files.end(),
                       [&listed](const QString& file) { return !listed.contains(entryOfFile(file)); });
}

void StarterPane::showPictures()
{
    QList<QUrl> wanted;
    for (const Offer& offer : m_offers) {
        const EntryFacts* const facts = factsOf(offer, wanted);
        offer.row->setPicture(facts != nullptr ? facts->picture : QImage());
    }
    m_reader.want(wanted);
}

/// The first movie with a picture; adds to `wanted` what has to be looked into before that is known.
const EntryFacts* StarterPane::factsOf(const Offer& offer, QList<QUrl>& wanted) const
{
    if (offer.row->isHidden()) return nullptr;
    for (const QString& file : offer.files.first(std::min(offer.files.size(), mostLooks))) {
        const QUrl url = entryOfFile(file).url;
        const EntryFacts* const facts = m_reader.facts(url);
        if (facts == nullptr) wanted.append(url);
        if (facts == nullptr || !facts->picture.isNull()) return facts;
    }
    return nullptr;
}

} // namespace kestro
