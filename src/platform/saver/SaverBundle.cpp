#include "platform/saver/SaverBundle.h"

#include "platform/base/Log.h"
#include "platform/base/Result.h"
#include "platform/plist/PropertyList.h"
#include "platform/saver/SaverPlugin.h"
#include "platform/saver/ScreenSaverView.h"

#include <QFileInfo>
#include <QPluginLoader>

#include <exception>

namespace kestro {

namespace {

struct BundleInfo {
    QString principalName;
    QString executable;
};

QString textAt(const QVariantMap& info, const QString& key)
{
    const QVariant value = info.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

bool isPlainFileName(const QString& name)
{
    return !name.isEmpty() && !name.contains(u'/') && !name.contains(QChar::Null) && name != u"." &&
           name != u"..";
}

Result<BundleInfo> readInfo(const QString& bundlePath)
{
    const auto info = readPropertyListDictionary(bundlePath + QStringLiteral("/Contents/Info.plist"));
    if (!info) return Error{QStringLiteral("it has no readable Contents/Info.plist")};
    BundleInfo found{textAt(*info, QStringLiteral("NSPrincipalClass")),
                     textAt(*info, QStringLiteral("CFBundleExecutable"))};
    if (!isPlainFileName(found.executable))
        return Error{QStringLiteral("its CFBundleExecutable is no plain file name")};
    return found;
}

// Whatever the library throws while it is loaded ends here.
Result<QObject*> loadInstance(const QString& library)
{
    QPluginLoader loader(library);
    // With every symbol resolved now, a library that lacks one fails here and not in the middle of a run.
    loader.setLoadHints(QLibrary::ResolveAllSymbolsHint | QLibrary::PreventUnloadHint);
    try {
        if (QObject* instance = loader.instance(); instance != nullptr) return instance;
        return Error{loader.errorString()};
    } catch (const std::exception& thrown) {
        return Error{QStringLiteral("its library threw: ") + QString::fromUtf8(thrown.what())};
    } catch (...) {
        return Error{QStringLiteral("its library threw an unknown exception")};
    }
}

// Empty when there is none.
QString libraryFile(const QString& bundlePath, const QString& executable)
{
    const QString named = bundlePath + QStringLiteral("/Contents/Linux/") + executable;
    for (const QString& candidate : {named, named + QStringLiteral(".so")}) {
        if (QFileInfo(candidate).isFile()) return QFileInfo(candidate).canonicalFilePath();
    }
    return {};
}

Result<SaverPlugin*> loadPlugin(const QString& library)
{
    const Result<QObject*> instance = loadInstance(library);
    if (!instance) return Error{instance.error()};
    auto* plugin = qobject_cast<SaverPlugin*>(instance.value());
    if (plugin == nullptr) return Error{QStringLiteral("its library holds no screen saver")};
    return plugin;
}

void logRefusal(const QString& path, const QString& reason)
{
    logLine(QStringLiteral("saver bundle %1 not loaded: %2").arg(path, reason));
}

// Runs code of a plug-in. What it throws is logged, and `otherwise` is the answer.
template <typename Answer, typename Code>
Answer guarded(const QString& className, Answer otherwise, Code code)
{
    QString thrown = QStringLiteral("an unknown exception");
    try {
        return code();
    } catch (const std::exception& exception) {
        thrown = QString::fromUtf8(exception.what());
    } catch (...) {
    }
    logLine(QStringLiteral("screen saver class %1 threw: %2").arg(className, thrown));
    return otherwise;
}

} // namespace

bool PrincipalClass::isScreenSaverView() const
{
    return guarded(m_name, false, [this] { return m_plugin->isScreenSaverView(m_name); });
}

std::shared_ptr<ScreenSaverView> PrincipalClass::initWithFrameIsPreview(const Rect& frame, bool isPreview,
                                                                        Desktop& desktop) const
{
    return guarded(m_name, std::shared_ptr<ScreenSaverView>(),
                   [&] { return m_plugin->initWithFrameIsPreview(m_name, frame, isPreview, desktop); });
}

void PrincipalClass::setOptionsForThisRun(const QVariantMap& options) const
{
    guarded(m_name, true, [&] {
        m_plugin->setOptionsForThisRun(options);
        return true;
    });
}

SaverBundle::SaverBundle(QString path, QString principalName, SaverPlugin& plugin)
    : m_path(std::move(path))
    , m_principalName(std::move(principalName))
    , m_plugin(&plugin)
{
}

std::optional<SaverBundle> SaverBundle::load(const QString& path)
{
    const Result<BundleInfo> info = readInfo(path);
    if (!info) {
        logRefusal(path, info.error());
        return {};
    }
    const QString library = libraryFile(path, info.value().executable);
    if (library.isEmpty()) {
        logRefusal(path, QStringLiteral("its library is missing"));
        return {};
    }
    const Result<SaverPlugin*> plugin = loadPlugin(library);
    if (!plugin) {
        logRefusal(path, plugin.error());
        return {};
    }
    return SaverBundle(path, info.value().principalName, *plugin.value());
}

QString SaverBundle::pathForResource(const QString& name, const QString& type) const
{
    const QString file = type.isEmpty() ? name : name + u'.' + type;
    const QString resource = m_path + QStringLiteral("/Contents/Resources/") + file;
    return QFileInfo(resource).isFile() ? resource : QString();
}

std::optional<PrincipalClass> SaverBundle::principalClass() const
{
    if (m_principalName.isEmpty()) return {};
    return PrincipalClass(*m_plugin, m_principalName);
}

} // namespace kestro
