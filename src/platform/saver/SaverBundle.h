#pragma once

#include "platform/base/Result.h"
#include "platform/display/view/Geometry.h"

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
    PrincipalClass(std::shared_ptr<SaverPlugin> plugin, QString name)
        : m_plugin(std::move(plugin))
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
    std::shared_ptr<SaverPlugin> m_plugin; ///< shared with the bundle it is from
    QString m_name;
};

/// A saver bundle: a folder with Contents/Info.plist ("NSPrincipalClass", "CFBundleExecutable"), the shared
/// library Contents/Linux/<executable> (or <executable>.so), and Contents/Resources. A bundle whose principal
/// class is one of the two built in (BuiltInSavers.h) names no executable and needs no library. Loading runs
/// the library's code. Main thread.
class SaverBundle final {
public:
    /// Loads the bundle at `path`; the error is one line that says why it is none, or why its library cannot
    /// be loaded. A second load of one bundle in a process answers the same library.
    [[nodiscard]] static Result<SaverBundle> load(const QString& path);

    [[nodiscard]] const QString& path() const { return m_path; }
    /// Its file `name` of type `type` in Contents/Resources; empty when there is none.
    [[nodiscard]] QString pathForResource(const QString& name, const QString& type) const;
    /// Its principal class; nothing when Info.plist names none.
    [[nodiscard]] std::optional<PrincipalClass> principalClass() const;

private:
    SaverBundle(QString path, QString principalName, std::shared_ptr<SaverPlugin> plugin);

    QString m_path;
    QString m_principalName;
    std::shared_ptr<SaverPlugin> m_plugin; ///< shared with its principal class; a library's own is not owned
};

} // namespace kestro
