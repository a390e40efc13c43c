#pragma once

#include "support/WaitUntil.h"

#include <QColor>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

namespace kestro {

/// An X server of a test's own, without a window manager, whose pixels can be read. Ends with the test.
class XvfbServer final {
public:
    /// `screen` as Xvfb takes it, "1920x1080x24".
    explicit XvfbServer(const QString& screen, const QStringList& options = {});
    ~XvfbServer();

    [[nodiscard]] bool isRunning() const { return m_pixels != nullptr; }
    /// The environment of a program that is to use this server.
    [[nodiscard]] QProcessEnvironment environment() const;
    /// Runs a tool against it; whether that succeeded.
    [[nodiscard]] bool run(const QString& tool, const QStringList& arguments) const;
    /// What is shown, counted from the top left.
    [[nodiscard]] QColor pixel(int x, int y) const;

private:
    QTemporaryDir m_folder;
    QProcess m_process;
    QString m_display; ///< ":7"
    QFile m_frame;     ///< what the server shows, in the xwd file format
    const uchar* m_pixels = nullptr;
    qsizetype m_stride = 0;
};

} // namespace kestro
