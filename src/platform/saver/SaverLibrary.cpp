#include "platform/saver/SaverLibrary.h"

#include "platform/saver/SaverPlugin.h"

#include <QFileInfo>
#include <QJsonObject>
#include <QPluginLoader>

#include <exception>

namespace kestro {

namespace {

bool isPlainFileName(const QString& name)
{
    return !name.isEmpty() && !name.contains(u'/') && !name.contains(QChar::Null) && name != u"." &&
           name != u"..";
}

// Empty when there is none.
QString libraryFile(const QString& bundle, const QString& executable)
{
    const QString named = bundle + QStringLiteral("/Contents/Linux/") + executable;
    for (const QString& candidate : {named, named + QStringLiteral(".so")}) {
        if (QFileInfo(candidate).isFile()) return QFileInfo(candidate).canonicalFilePath();
    }
    return {};
}

QString versionOf(const QString& interface)
{
    return interface.section(u'/', 1);
}

// By what the library says of itself, read from its file without running anything of it. Fine, too, where it
// is no library at all, which loading tells better.
Result<void> checkInterface(const QPluginLoader& loader)
{
    const QString expected = QStringLiteral(KestroSaverPlugin_iid);
    const QString said = loader.metaData().value(QStringLiteral("IID")).toString();
    if (said.isEmpty() || said == expected) return {};
    if (said.section(u'/', 0, 0) != expected.section(u'/', 0, 0))
        return Error{QStringLiteral("its library holds no screen saver")};
    return Error{
        QStringLiteral("its library is made for version %1 of the saver interface, this is version %2")
            .arg(versionOf(said), versionOf(expected))};
}

// Whatever the library throws while it is loaded ends here.
Result<QObject*> loadInstance(QPluginLoader& loader)
{
    try {
        if (QObject* instance = loader.instance(); instance != nullptr) return instance;
        return Error{loader.errorString()};
    } catch (const std::exception& thrown) {
        return Error{QStringLiteral("its library threw: ") + QString::fromUtf8(thrown.what())};
    } catch (...) {
        return Error{QStringLiteral("its library threw an unknown exception")};
    }
}

} // namespace

Result<SaverPlugin*> loadSaverLibrary(const QString& bundle, const QString& executable)
{
    if (!isPlainFileName(executable))
        return Error{QStringLiteral("its CFBundleExecutable is no plain file name")};
    const QString library = libraryFile(bundle, executable);
    if (library.isEmpty()) return Error{QStringLiteral("its library is missing")};
    QPluginLoader loader(library);
    // With every symbol resolved now, a library that lacks one fails here and not in the middle of a run.
    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    if (const auto fits = checkInterface(loader); !fits) return fits.failure();
    const Result<QObject*> instance = loadInstance(loader);
    if (!instance) return instance.failure();
    auto* plugin = qobject_cast<SaverPlugin*>(instance.value());
    if (plugin == nullptr) return Error{QStringLiteral("its library holds no screen saver")};
    return plugin;
}

} // namespace kestro
