#include "platform/saver/SaverBundle.h"

#include "platform/base/Log.h"
#include "platform/plist/PropertyList.h"
#include "platform/saver/BuiltInSavers.h"
#include "platform/saver/SaverLibrary.h"
#include "platform/saver/SaverPlugin.h"
#include "platform/saver/ScreenSaverView.h"

#include <QFileInfo>

#include <exception>

namespace kestro {

namespace {

const QString principalKey = QStringLiteral("NSPrincipalClass");
const QString executableKey = QStringLiteral("CFBundleExecutable");

QString textAt(const QVariantMap& info, const QString& key)
{
    const QVariant value = info.value(key);
    return value.typeId() == QMetaType::QString ? value.toString() : QString();
}

Result<std::shared_ptr<SaverPlugin>> pluginOf(const QString& path, const QVariantMap& info)
{
    if (!info.contains(executableKey) && BuiltInSavers::knows(textAt(info, principalKey)))
        return std::shared_ptr<SaverPlugin>(std::make_shared<BuiltInSavers>(path, info));
    const Result<SaverPlugin*> loaded = loadSaverLibrary(path, textAt(info, executableKey));
    if (!loaded) return loaded.failure();
    const auto leave = [](SaverPlugin*) {}; // the library's own, for the life of the process
    return std::shared_ptr<SaverPlugin>(loaded.value(), leave);
}

Error refusal(const QString& path, const QString& reason)
{
    return {QStringLiteral("saver bundle %1 not loaded: %2").arg(path, reason)};
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

SaverBundle::SaverBundle(QString path, QString principalName, std::shared_ptr<SaverPlugin> plugin)
    : m_path(std::move(path))
    , m_principalName(std::move(principalName))
    , m_plugin(std::move(plugin))
{
}

Result<SaverBundle> SaverBundle::load(const QString& path)
{
    const auto info = readPropertyListDictionary(path + QStringLiteral("/Contents/Info.plist"));
    if (!info) return refusal(path, QStringLiteral("it has no readable Contents/Info.plist"));
    auto plugin = pluginOf(path, *info);
    if (!plugin) return refusal(path, plugin.error());
    return SaverBundle(path, textAt(*info, principalKey), std::move(plugin.value()));
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
    return PrincipalClass(m_plugin, m_principalName);
}

} // namespace kestro
