#include "platform/saver/BuiltInSavers.h"

#include "platform/base/Log.h"
#include "platform/base/Paths.h"
#include "platform/saver/Hack.h"
#include "platform/saver/HackHost.h"
#include "platform/saver/PictureFolderView.h"
#include "platform/saver/SlideFolder.h"

namespace kestro {

BuiltInSavers::BuiltInSavers(QString bundle, QVariantMap info)
    : m_bundle(std::move(bundle))
    , m_info(std::move(info))
{
}

bool BuiltInSavers::knows(const QString& className)
{
    return className == hackHostName || className == pictureFolderName;
}

std::shared_ptr<ScreenSaverView> BuiltInSavers::initWithFrameIsPreview(const QString& className,
                                                                       const Rect& frame, bool isPreview,
                                                                       Desktop& desktop)
{
    if (className == hackHostName) return makeHackHost(frame, isPreview, desktop);
    if (className == pictureFolderName)
        return std::make_shared<PictureFolderView>(frame, isPreview, slideFolder(homeFolder()), desktop);
    return nullptr;
}

std::shared_ptr<ScreenSaverView> BuiltInSavers::makeHackHost(const Rect& frame, bool isPreview,
                                                             Desktop& desktop) const
{
    const Result<Hack> hack = Hack::fromInfo(m_info);
    const auto host = hack ? HackHost::create(frame, isPreview, hack.value(), m_bundle, desktop)
                           : Result<std::shared_ptr<HackHost>>(hack.failure());
    if (host) return host.value();
    logLine(QStringLiteral("no view of %1: %2").arg(m_bundle, host.error()));
    return nullptr;
}

} // namespace kestro
