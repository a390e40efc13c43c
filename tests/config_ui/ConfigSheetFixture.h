#pragma once

#include "config_ui/BareMachine.h"
#include "config_ui/ConfigDoubles.h"
#include "config_ui/ConfigSheet.h"
#include "config_ui/RQTableViewRowMove.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QSettings>
#include <QTest>
#include <QTimer>

#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <mutex>

namespace kestro {

/// The sheet on a saver and a trailer browser that a test holds, over a window. Movies are looked into by
/// name only.
class ConfigSheetFixture : public testing::Test {
protected:
    ConfigSheetFixture()
    {
        window.resize(800, 600);
        window.show();
    }
    /// Lets go of the keys: the application remembers which are held.
    ~ConfigSheetFixture() override { QTest::keyRelease(&window, Qt::Key_Shift); }

    /// A sheet that opens on a playlist of these URLs and these options.
    ConfigSheet& open(const QStringList& urls, QVariantMap options = {})
    {
        options.insert(QStringLiteral("Ver"), QStringLiteral("5"));
        options.insert(QStringLiteral("FileList"), urls);
        saver.store().setPlist(options);
        sheet = std::make_unique<ConfigSheet>(
            saver, &trailers, [this](const QUrl& url, const std::stop_token&) { return look(url); }, &window,
            &defaults);
        sheet->open();
        calls.clear();
        QApplication::processEvents();
        return *sheet;
    }

    /// The control of that name.
    template <typename Control>
    Control& control(const char* name)
    {
        auto* const found = sheet->findChild<Control*>(QString::fromLatin1(name));
        if (found == nullptr) throw std::runtime_error(name);
        return *found;
    }
    QWidget& widget(const char* name) { return control<QWidget>(name); }
    bool isEnabled(const char* name) { return widget(name).isEnabled(); }
    void click(const char* name)
    {
        auto& button = control<QAbstractButton>(name);
        ASSERT_TRUE(button.isEnabled()) << name;
        button.click();
    }

    /// What a field shows, and typing into it.
    QString textOf(const char* name) { return control<QLineEdit>(name).text(); }
    void type(const char* name, const QString& text)
    {
        control<QLineEdit>(name).setFocus();
        control<QLineEdit>(name).selectAll();
        QTest::keyClicks(&control<QLineEdit>(name), text);
    }

    /// The playlist.
    RQTableViewRowMove& table() { return control<RQTableViewRowMove>("playListView"); }
    void select(const QList<int>& rows)
    {
        table().clearSelection();
        for (const int row : rows)
            table().selectionModel()->select(table().model()->index(row, 0), QItemSelectionModel::Select);
        table().setFocus();
    }

    /// Calls `answer` with the modal window that comes next, once it is shown.
    template <typename Panel>
    void whenShown(std::function<void(Panel&)> answer)
    {
        auto* const look = new QTimer(&window);
        QObject::connect(look, &QTimer::timeout, look, [look, answer] {
            auto* const panel = qobject_cast<Panel*>(QApplication::activeModalWidget());
            if (panel == nullptr || !panel->isVisible()) return;
            delete look;
            answer(*panel);
        });
        look->start(0);
    }

    [[nodiscard]] QStringList listed() const
    {
        QStringList texts;
        for (const PlaylistEntry& entry : sheet->model().playList().entries())
            texts.append(entry.text);
        return texts;
    }
    static QString movie(const QString& name) { return QStringLiteral("http://m/") + name; }

    /// Texts of the focus chain's stops, from the first control on.
    QStringList tabStops()
    {
        QStringList names;
        const QWidget* const first = &widget("playListView");
        const QWidget* at = first;
        do {
            const bool isStop = at->focusPolicy() & Qt::TabFocus && at->isEnabled() && at->isVisible();
            if (isStop && at->window() == sheet.get()) names.append(at->objectName());
            at = at->nextInFocusChain();
        } while (at != first);
        return names;
    }

    EntryFacts look(const QUrl& url)
    {
        const std::lock_guard lock(m_mutex);
        m_looked.append(url);
        if (!isThere) return {.seconds = 0, .picture = {}, .fault = MovieFault{MovieFault::Kind::NoFile}};
        return {.seconds = 60, .picture = {}, .fault = {}};
    }
    QList<QUrl> looked()
    {
        const std::lock_guard lock(m_mutex);
        return m_looked;
    }

    std::atomic<bool> isThere = true; ///< the movie that is looked into
    Calls calls;
    BareMachine machine;
    QTemporaryDir folder;
    QSettings defaults{folder.filePath(QStringLiteral("host.conf")), QSettings::IniFormat};
    SaverDouble saver{calls};
    BrowserDouble trailers{calls};
    QWidget window;

private:
    std::mutex m_mutex;
    QList<QUrl> m_looked;

protected:
    std::unique_ptr<ConfigSheet> sheet;
};

} // namespace kestro
