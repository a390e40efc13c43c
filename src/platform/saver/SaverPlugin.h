#pragma once

#include "platform/display/view/Geometry.h"

#include <QString>
#include <QVariantMap>
#include <QtPlugin>

#include <memory>

namespace kestro {

class Desktop;
class ScreenSaverView;

/// What the shared library of a saver bundle exports. The library stays loaded for the life of the process.
/// No exception may leave it.
class SaverPlugin {
public:
    virtual ~SaverPlugin() = default;

    /// Creates a view of the class `className` (the bundle's principal class), `frame` in the coordinates of
    /// the view that will hold it. Null when the library has no such screen saver class, or cannot create it.
    /// Shared: in piggy-back running the view lives on behind the one that the host was handed.
    [[nodiscard]] virtual std::shared_ptr<ScreenSaverView>
    initWithFrameIsPreview(const QString& className, const Rect& frame, bool isPreview, Desktop& desktop) = 0;

    /// Takes options that count in this process instead of the stored ones, by their names there, before the
    /// first view is made. They are never stored.
    virtual void setOptionsForThisRun(const QVariantMap& options) { Q_UNUSED(options) }

    /// Whether `className` names a screen saver view of this library.
    [[nodiscard]] virtual bool isScreenSaverView(const QString& className) const = 0;
};

} // namespace kestro

#define KestroSaverPlugin_iid "org.kestro.SaverPlugin/1"
Q_DECLARE_INTERFACE(kestro::SaverPlugin, KestroSaverPlugin_iid)
