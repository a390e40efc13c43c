#pragma once

#include "settings/LatestTrailers.h"

#include <vector>

namespace kestro {

/// Answers as many made-up trailers as asked for, named after the call, less the excluded ones; and keeps
/// what it was asked. For tests.
class RecordingTrailers final : public LatestTrailers {
public:
    struct Call {
        int count;
        int width;
        QSet<QString> excluded;
        bool operator==(const Call&) const = default;
    };

    [[nodiscard]] QList<QUrl> lastTrailers(int count, int width, const QSet<QString>& excluded) override
    {
        calls.push_back({count, width, excluded});
        QList<QUrl> found = others;
        for (int number = 1; number <= count; ++number) {
            const QString url = urlText(width, number);
            if (!excluded.contains(url)) found.append(QUrl(url));
        }
        return found;
    }

    void scanLatest() override { ++scans; }
    void stopThreading() override { ++stops; }

    [[nodiscard]] static QString urlText(int width, int number)
    {
        return QStringLiteral("http://trailers.example/%1/%2.mov").arg(width).arg(number);
    }

    std::vector<Call> calls;
    QList<QUrl> others; ///< that each answer begins with
    int scans = 0;
    int stops = 0;
};

} // namespace kestro
