#pragma once

#include "platform/network/CurlFetch.h"
#include "support/LoopbackServer.h"

#include <QUrl>

#include <gtest/gtest.h>
#include <optional>
#include <string>

namespace kestro {

/// The bytes at `url`; nothing for an error, which must be one line that names the URL.
inline std::optional<std::string> bytesAt(Fetch& fetch, const std::string& url)
{
    const auto bytes = fetch.fetch(QUrl(QString::fromStdString(url)));
    if (bytes) return bytes.value().toStdString();
    EXPECT_TRUE(bytes.error().startsWith(QStringLiteral("Cannot read "))) << bytes.error().toStdString();
    EXPECT_FALSE(bytes.error().contains(u'\n')) << bytes.error().toStdString();
    return {};
}

/// Why nothing is read at `url`; empty when something is.
inline std::string errorAt(Fetch& fetch, const std::string& url)
{
    const auto bytes = fetch.fetch(QUrl(QString::fromStdString(url)));
    return bytes ? std::string() : bytes.error().toStdString();
}

} // namespace kestro
