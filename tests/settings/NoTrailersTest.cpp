#include "settings/NoTrailers.h"

#include "settings/Playlist.h"
#include "settings/RecordingTrailers.h"
#include "settings/SettingsInMemory.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(NoTrailers, automaticEntries_standForNothing)
{
    SettingsInMemory settings(
        QVariantMap{{QStringLiteral("Ver"), QStringLiteral("5")},
                    {QStringLiteral("FileList"), QStringList{QStringLiteral("auto://LatestTrailers/6/480"),
                                                             QStringLiteral("http://example.com/a.mov")}}});
    NoTrailers trailers;
    SomeClient client;
    Playlist playlist(settings.settings(), trailers, client, false);
    EXPECT_EQ(playlist.fileList(), QList<QUrl>{QUrl(QStringLiteral("http://example.com/a.mov"))});
    EXPECT_TRUE(playlist.hasAutoTrailers());
    trailers.stopThreading();
    EXPECT_TRUE(trailers.lastTrailers(6, 480, {}).isEmpty());
}

} // namespace kestro
