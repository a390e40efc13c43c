#pragma once

#include "host/preferences/Preview.h"
#include "host/preferences/live/LazyTrailerBrowser.h"
#include "host/preferences/live/SaverPreview.h"

#include <QDialog>
#include <QPointer>

namespace kestro {

class MovieLibrary;

/// The saver in a widget, with the sheet of its options and the browser of trailers that the sheet shows.
/// Owned by the window with the settings. Main thread.
class LivePreview final : public Preview {
public:
    /// Makes the sheet for a saver, over a window, which owns it.
    using SheetMaker =
        std::function<QDialog*(ConfigurableSaver& saver, TrailerBrowser& trailers, QWidget* over)>;
    /// Makes the browser of trailers, which shows movies of that library.
    using BrowserMaker = std::function<std::unique_ptr<TrailerBrowser>(MovieLibrary& movies)>;
    /// What it is made of.
    struct Parts {
        SaverPreview::ViewFactory views;
        SheetMaker sheet;
        BrowserMaker trailers;
    };

    explicit LivePreview(Parts parts);
    ~LivePreview() override;

    [[nodiscard]] QWidget& widget() override { return *m_saver; }
    [[nodiscard]] bool start(const std::function<void()>& made) override;
    [[nodiscard]] bool isRunning() const override { return m_saver->isRunning(); }
    void setPaused(Pause reason, bool paused) override;
    [[nodiscard]] bool hasOptions() const override { return m_saver->options() != nullptr; }
    void openOptions(QWidget& over) override;
    void end() override;

private:
    SheetMaker m_makeSheet;
    LazyTrailerBrowser m_trailers;
    std::unique_ptr<SaverPreview> m_saver;
    QPointer<QDialog> m_sheet; ///< made when first opened; its window may go first
};

} // namespace kestro
