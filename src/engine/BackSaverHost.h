#pragma once

#include "engine/SlideRedirection.h"
#include "platform/display/view/Geometry.h"

#include <QString>
#include <QStringList>

#include <memory>

namespace kestro {

class Desktop;
class ScreenSaverView;

/// The savers that may run behind the movies: which there are, and a view of the chosen one. Shared by every
/// saver of a process. Main thread.
class BackSaverHost final {
public:
    /// `home` is the folder of the user whose savers and preferences are meant.
    explicit BackSaverHost(QString home);

    /// Lists the installed savers anew: those for every user, the system's, the user's own.
    void reloadBackSavers();
    /// Full paths of the bundles, in the order of the pop-up menu.
    [[nodiscard]] const QStringList& backSaverList() const { return m_backSaverList; }
    /// The items of the pop-up menu: "Disable", then the file name of each bundle.
    [[nodiscard]] QStringList backSaverPopup() const;

    /// Loads the saver bundle at `path` and makes a view of it. Null, mostly with a line in the log, when
    /// that fails. A slide-show bundle is shown by the saver of picture folders, whose folder is redirected
    /// meanwhile.
    [[nodiscard]] std::shared_ptr<ScreenSaverView> loadOtherSaverWithFrameIsPreview(const QString& path,
                                                                                    const Rect& frame,
                                                                                    bool isPreview,
                                                                                    Desktop& desktop);
    /// Whether that is under way, further down the stack: no saver stands behind one that stands behind one.
    [[nodiscard]] bool isLoading() const { return m_isLoading; }

    /// Puts the folder of the slide show back; nothing when it was not redirected.
    void restoreSlideFolder() { m_slides.restore(); }

private:
    QString m_home;
    QStringList m_backSaverList;
    SlideRedirection m_slides;
    bool m_isLoading = false;
};

} // namespace kestro
