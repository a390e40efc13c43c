#include "platform/base/Log.h"

#include <QObject>
#include <QtPlugin>

namespace kestro {

/// A saver library of a release with another interface; it tells when its code runs.
class OldInterface final : public QObject {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.kestro.SaverPlugin/0")

public:
    OldInterface() { logLine(QStringLiteral("old code runs")); }
};

} // namespace kestro

#include "OldInterface.moc"
