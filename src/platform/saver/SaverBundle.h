#pragma once

#include "platform/display/Geometry.h"

#include <QString>
#include <QVariantMap>

#include <memory>
#include <optional>

namespace kestro {

class Desktop;
class SaverPlugin;
class ScreenSaverView;

/// The principal class of a loaded saver bundle: makes views of it. Cheap to copy. Main thread.
class PrincipalClass final {
public:
    PrincipalClass(SaverPlugin& plugin, QString name)
        : m_plugin(&plugin)
        , m_name(std::move(name))
    {
    }

    [[nodiscard]] const QString& name() const { return m_name; }
    /// Whether it is a screen saver at all.
    [[nodiscard]] bool isScreenSaverView() const;
    /// A new view, or null when it cannot be made.
    [[nodiscard]] std::shared_ptr<ScreenSaverView> initWithFrameIsPreview(const Rect& frame, bool isPreview,
                                                                          Desktop& desktop) const;

    /// Options that count in this process instead of the stored ones; before the first view is made.
    void setOptionsForThisRun(const QVariantMap& options) const;

private:
    SaverPlugin* m_plugin;
    QString m_name;
};

/// A saver bundle: a folder with Contents/Info.plist ("NSPrincipalClass", "CFBundleExecutable"), the shared
/// library Contents/Linux/<executable> (or <executable>.so), and Contents/Resources. Loading runs the
/// library's code. Main thread.
class SaverBundle final {
public:
    /// Loads the bundle at `path`; nothing, with a log line that says why, when it is none or its library
    /// cannot be loaded. A second load of one bundle in a process answers the same library.
    [[nodiscard]] static std::optional<SaverBundle> load(const QString& path);

    [[nodiscard]] const QString& path() const { return m_path; }
    /// Its file `name` of type `type` in Contents/Resources; empty when there is none.
    [[nodiscard]] QString pathForResource(const QString& name, const QString& type) const;
    /// Its principal class; nothing when Info.plist names none.
    [[nodiscard]] std::optional<PrincipalClass> principalClass() const;

private:
    SaverBundle(QString path, QString principalName, SaverPlugin& plugin);

    QString m_path;
    QString m_principalName;
    SaverPlugin* m_plugin;
};

} // namespace kestro
