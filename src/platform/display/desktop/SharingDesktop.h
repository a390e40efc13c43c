#pragma once

#include "platform/base/ScreenChoice.h"
#include "platform/display/desktop/Desktop.h"
#include "platform/display/desktop/ScreenPlan.h"

namespace kestro {

class SharedSurface;
struct InputEvent;

/// A desktop as a person wants its monitors used: a screen for each picture that they show, on one or on
/// several of them. Monitors that were not chosen are black; whatever a person does is told by the first
/// screen. Everything but the screens is that of the desktop below, which outlives it and whose screens'
/// handlers and observer it takes. Owned by the program. Main thread; points.
class SharingDesktop final : public Desktop {
public:
    SharingDesktop(Desktop& below, ScreenChoice choice);
    /// The same; null where nothing is chosen, and the desktop below is used as it is.
    [[nodiscard]] static std::unique_ptr<SharingDesktop> over(Desktop& below, const ScreenChoice& choice);
    ~SharingDesktop() override;
    SharingDesktop(const SharingDesktop&) = delete;
    SharingDesktop& operator=(const SharingDesktop&) = delete;

    [[nodiscard]] std::vector<Screen*> screens() const override;
    [[nodiscard]] std::shared_ptr<OpenGL> openGL() const override { return m_below.openGL(); }
    [[nodiscard]] Cursor& cursor() override { return m_below.cursor(); }
    [[nodiscard]] TimerSource& timers() override { return m_below.timers(); }
    [[nodiscard]] NotificationCenter& notifications() override { return m_below.notifications(); }
    [[nodiscard]] const Clock& clock() const override { return m_below.clock(); }
    [[nodiscard]] Random& random() override { return m_below.random(); }

private:
    /// A screen of the desktop below.
    struct Monitor {
        Screen* screen;
        bool isSeen = true;
        SharedSurface* shows = nullptr; ///< null where it is black
    };
    /// A screen of this desktop.
    struct Shown {
        const Screen* monitor;  ///< that it stands for; null where it stands for all that were chosen
        SharedSurface* surface; ///< the screen's
        std::unique_ptr<Screen> screen;
    };

    void follow(const Screen* going);
    void listMonitors(const Screen* going);
    [[nodiscard]] ScreenPlan plan() const;
    [[nodiscard]] const Screen* keyOf(const ScreenPlan::Picture& picture) const;
    void removeOthers(const ScreenPlan& plan);
    void show(const ScreenPlan::Picture& picture, std::size_t place);
    void add(const ScreenPlan::Picture& picture, std::size_t place);
    void layOut(SharedSurface& surface, const ScreenPlan::Picture& picture);
    void tellMissing(const QStringList& missing);
    void seen(const Screen* monitor, bool isSeen);
    void tellSeen();
    void tell(const Screen& monitor, const InputEvent& event) const;

    Desktop& m_below;
    ScreenChoice m_choice;
    std::vector<Monitor> m_monitors; ///< first one first
    std::vector<Shown> m_shown;      ///< likewise
    QStringList m_missing;           ///< names that the log was told of
};

} // namespace kestro
