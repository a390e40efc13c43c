#include "engine/BackSaverHost.h"

#include "platform/base/FileName.h"
#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/saver/SaverBundle.h"
#include "platform/saver/ScreenSaverView.h"
#include "settings/BackSaverMenu.h"

#include <QDir>
#include <QFileInfo>
#include <QScopedValueRollback>

namespace kestro {

namespace {

const QString slideShowExtension = QStringLiteral("slideSaver");

/// The saver that shows a folder of pictures.
const QString picFolderPath = QStringLiteral("/System/Library/Frameworks/ScreenSaver.framework/Versions/A/"
                                             "Resources/Pictures Folder.saver");

bool isOffered(const QString& name)
{
    const QString extension = extensionOf(name);
    return name != u"Kestro.saver" && (extension == u"saver" || extension == slideShowExtension);
}

/// Where the package has it, if only there is something; else the path itself.
QString bundleAt(const QString& path)
{
    const QString packaged = QFileInfo::exists(path) ? path : platformPath(path);
    return QFileInfo::exists(packaged) ? packaged : path;
}

std::shared_ptr<ScreenSaverView> viewOf(const QString& path, const Rect& frame, bool isPreview,
                                        Desktop& desktop)
{
    const auto bundle = SaverBundle::load(bundleAt(path));
    if (!bundle) {
        logLine(bundle.error());
        logLine(QStringLiteral("Not a screensaver. %1").arg(path));
    }
    const auto principal = bundle ? bundle.value().principalClass() : std::nullopt;
    if (!principal || !principal->isScreenSaverView()) {
        logLine(QStringLiteral("Cannot get a class."));
        return nullptr;
    }
    auto view = principal->initWithFrameIsPreview(frame, isPreview, desktop);
    if (!view) logLine(QStringLiteral("Failed to create background saver."));
    return view;
}

} // namespace

BackSaverHost::BackSaverHost(QString home)
    : m_home(std::move(home))
    , m_slides(m_home)
{
}

void BackSaverHost::reloadBackSavers()
{
    m_backSaverList.clear();
    const QStringList folders{platformPath(QStringLiteral("/Library/Screen Savers")),
                              platformPath(QStringLiteral("/System/Library/Screen Savers")),
                              m_home + QStringLiteral("/Library/Screen Savers")};
    const auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    for (const QString& folder : folders)
        for (const QString& name : QDir(folder).entryList(everything, QDir::Name))
            if (isOffered(name)) m_backSaverList.append(folder + u'/' + name);
}

QStringList BackSaverHost::backSaverPopup() const
{
    return backSaverItems(m_backSaverList);
}

std::shared_ptr<ScreenSaverView> BackSaverHost::loadOtherSaverWithFrameIsPreview(const QString& path,
                                                                                 const Rect& frame,
                                                                                 bool isPreview,
                                                                                 Desktop& desktop)
{
    const QScopedValueRollback loading(m_isLoading, true);
    if (extensionOf(path) != slideShowExtension) {
        m_slides.makeGood(); // the saver of picture folders may be the one that is chosen
        return viewOf(path, frame, isPreview, desktop);
    }
    const QString pictures = QDir::cleanPath(bundleAt(path)) + QStringLiteral("/Contents/Resources");
    if (!m_slides.redirect(pictures)) return nullptr;
    return viewOf(platformPath(picFolderPath), frame, isPreview, desktop);
}

} // namespace kestro
