#pragma once

#include "platform/network/CurlFetch.h"
#include "support/LoopbackServer.h"

#include <QUrl>

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace kestro {

/// The bytes at `url`; nothing for an error, whose reason must be one line and leave the URL to the caller.
inline std::optional<std::string> bytesAt(Fetch& fetch, const std::string& url)
{
    const auto bytes = fetch.fetch(QUrl(QString::fromStdString(url)));
    if (bytes) return bytes.value().toStdString();
    const QString reason = bytes.failure().message;
    EXPECT_TRUE(!reason.isEmpty() && reason == reason.simplified()) << reason.toStdString();
    EXPECT_FALSE(reason.contains(QStringLiteral("Cannot read "))) << reason.toStdString();
    return {};
}

/// Why nothing is read at `url`; empty when something is.
inline std::string errorAt(Fetch& fetch, const std::string& url)
{
    const auto bytes = fetch.fetch(QUrl(QString::fromStdString(url)));
    return bytes ? std::string() : bytes.failure().message.toStdString();
}

/// The kind of reason for which nothing is read at `url`; nothing when something is.
inline std::optional<FetchFault::Kind> faultAt(Fetch& fetch, const std::string& url)
{
    const auto bytes = fetch.fetch(QUrl(QString::fromStdString(url)));
    return bytes ? std::nullopt : std::optional(bytes.failure().kind);
}

} // namespace kestro
