#include <QObject>
#include <QtPlugin>

namespace kestro {

/// A plug-in of Qt that is no saver.
class OtherInterface final : public QObject {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.kestro.tests.Other/1")
};

} // namespace kestro

#include "OtherInterface.moc"
