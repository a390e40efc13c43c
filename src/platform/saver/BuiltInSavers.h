#pragma once

#include "platform/saver/SaverPlugin.h"

#include <QString>
#include <QVariantMap>

namespace kestro {

/// What the principal classes that need no library are called in a bundle's Info.plist.
inline const QString hackHostName = QStringLiteral("HackHost");
inline const QString pictureFolderName = QStringLiteral("PictureFolderView");

/// The savers that come without a library, as if from one: one object for each loaded bundle, which has the
/// bundle's Info.plist. Shared by the principal classes that were taken from it. Main thread.
/// Tested by SaverBundleTest.
class BuiltInSavers final : public SaverPlugin {
public:
    /// `bundle` is the path, for the log.
    BuiltInSavers(QString bundle, QVariantMap info);

    [[nodiscard]] static bool knows(const QString& className);

    [[nodiscard]] std::shared_ptr<ScreenSaverView> initWithFrameIsPreview(const QString& className,
                                                                          const Rect& frame, bool isPreview,
                                                                          Desktop& desktop) override;
    [[nodiscard]] bool isScreenSaverView(const QString& className) const override { return knows(className); }

private:
    [[nodiscard]] std::shared_ptr<ScreenSaverView> makeHackHost(const Rect& frame, bool isPreview,
                                                                Desktop& desktop) const;

    QString m_bundle;
    QVariantMap m_info;
};

} // namespace kestro
