#pragma once

#include "platform/base/ScreenChoice.h"

#include <QWidget>

#include <functional>

class QComboBox;

namespace kestro {

/// How the monitors share the saver, and which of them show it. What is chosen is stored in kestro.conf at
/// once. Owned as any widget is. Main thread.
class ScreensPanel final : public QWidget {
    Q_OBJECT

public:
    using Names = std::function<QStringList()>;

    /// `configuration` is that file, `monitors` tells which there are now.
    ScreensPanel(QString configuration, Names monitors, QWidget* parent = nullptr);
    /// Those of the session's monitors that have names.
    [[nodiscard]] static QStringList namesInSession();

    /// Reads what is stored, and which monitors there are, anew.
    void refresh();

    [[nodiscard]] QComboBox& mode() { return *m_mode; }
    [[nodiscard]] QComboBox& monitors() { return *m_monitors; }

Q_SIGNALS:
    /// What was chosen could not be stored; `error` is one line.
    void failed(const QString& error);

private:
    void layOut();
    void offerMonitors(const MonitorChoice& chosen);
    void store();

    QString m_configuration;
    Names m_names;
    QComboBox* m_mode;     ///< Qt's parents own both; each item's data is a ScreensMode
    QComboBox* m_monitors; ///< each item's data is the text of a MonitorChoice
};

} // namespace kestro
