#pragma once

#include "platform/base/FileWalk.h"

#include <QStringList>

#include <chrono>
#include <functional>
#include <memory>

namespace kestro {

/// The movies of this machine that a playlist can begin with: those in the person's folder of videos, the
/// theme movies, and the intro. They are looked for in processes of their own, one for the person's disk and
/// one for the package's. Owned by the pane that offers them; main thread.
class StarterMovies final {
public:
    enum Kind { Videos, Themes, Intro, kindTotal };
    /// What there is of a kind, sorted, or was found of it where its disk does not answer. Called later, once
    /// for each kind and look.
    using Found = std::function<void(Kind kind, const QStringList& files)>;

    /// `longest` is how long a disk may take.
    explicit StarterMovies(Found found, std::chrono::milliseconds longest = std::chrono::minutes(1));

    /// Looks for all of them anew; what is being looked for is given up.
    void look();
    /// The person's folder of videos; empty where it is none but the home folder.
    [[nodiscard]] static QString videosFolder();

private:
    void takeOfPackage(const FileWalk::Found& found);

    Found m_found;
    std::chrono::milliseconds m_longest;
    QStringList m_intros; ///< where the intro may lie; the first that is there is it
    std::unique_ptr<FileWalk> m_ofPerson;
    std::unique_ptr<FileWalk> m_ofPackage;
};

} // namespace kestro
