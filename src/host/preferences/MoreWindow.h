#pragma once

#include "host/preferences/OptionControl.h"

#include <QDialog>

#include <utility>
#include <vector>

class QScrollArea;
class QVBoxLayout;

namespace kestro {

struct MoreGroup;
struct MoreOption;

/// The options that most people never need, each with a line that says what it does. What is chosen is stored
/// in kestro.conf at once. Owned by who opens it. Main thread.
class MoreWindow final : public QDialog {
    Q_OBJECT

public:
    /// `configuration` is that file.
    MoreWindow(QString configuration, QWidget* parent);

    /// The control of one key; null where there is none.
    [[nodiscard]] QWidget* control(const QString& section, const QString& key) const;

Q_SIGNALS:
    /// What was chosen could not be stored; `error` is one line.
    void failed(const QString& error);

protected:
    void changeEvent(QEvent* event) override;

private:
    struct Row {
        QString section;
        QString key;
        OptionControl control;
    };

    void takeUsualSize(const QScrollArea& area, const QWidget& groups);
    [[nodiscard]] QWidget* makeGroups();
    [[nodiscard]] QWidget* makeGroup(const MoreGroup& group);
    void addOption(const MoreOption& option, QVBoxLayout& column, QWidget& box);
    void refresh();
    void store(const QString& section, const QString& key, const QString& value);

    QString m_configuration;
    std::vector<Row> m_rows;
};

} // namespace kestro
