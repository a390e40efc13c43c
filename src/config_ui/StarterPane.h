#pragma once

#include "config_ui/EntryReader.h"
#include "config_ui/StarterMovies.h"

#include <QScrollArea>

#include <array>

class QPushButton;

namespace kestro {

class ConfigModel;
class StarterRow;

/// Offers movies to begin with as long as nobody has chosen what plays: those in the person's folder of
/// videos, the theme movies and the intro, as far as this machine has them, each with a picture and a button
/// that adds them. To be seen only then. Owned as any widget is. Main thread.
class StarterPane final : public QScrollArea {
    Q_OBJECT

public:
    /// `model` outlives the pane, `read` looks into a movie.
    StarterPane(ConfigModel& model, const ProbeWorker::Read& read, QWidget* parent);

    /// The sheet opens: what there is is looked for anew, where it is wanted.
    void begin();
    /// Those that add, from the first.
    [[nodiscard]] QList<QPushButton*> buttons() const;

    /// All rows have room; where there is less, they scroll.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

private:
    using Kind = StarterMovies::Kind;
    struct Offer {
        StarterRow* row = nullptr; ///< Qt's parent owns it
        QStringList files;
    };

    void layOut();
    void take(Kind kind, const QStringList& files);
    void refresh();
    [[nodiscard]] bool isOffered(const Offer& offer) const;
    void showPictures();
    [[nodiscard]] const EntryFacts* factsOf(const Offer& offer, QList<QUrl>& wanted) const;
    [[nodiscard]] static QString detail(Kind kind, qsizetype count);

    ConfigModel& m_model;
    EntryReader m_reader;
    StarterMovies m_movies;
    std::array<Offer, StarterMovies::kindTotal> m_offers;
    bool m_isLookDue = false;
};

} // namespace kestro
