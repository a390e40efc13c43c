#include "platform/network/Site.h"

#include <QUrl>

#include <arpa/inet.h>
#include <cstring>
#include <gtest/gtest.h>
#include <netinet/in.h>

namespace kestro {

namespace {

QUrl url(const char* text)
{
    return QUrl(QString::fromLatin1(text));
}

bool isPublic(const char* text)
{
    sockaddr_in6 of6{};
    sockaddr_in of4{};
    of6.sin6_family = AF_INET6;
    of4.sin_family = AF_INET;
    if (inet_pton(AF_INET6, text, &of6.sin6_addr) == 1)
        return isPublicAddress(reinterpret_cast<const sockaddr&>(of6));
    EXPECT_EQ(inet_pton(AF_INET, text, &of4.sin_addr), 1) << text;
    return isPublicAddress(reinterpret_cast<const sockaddr&>(of4));
}

TEST(Site, isSameSite_wantsSchemeHostAndPort)
{
    EXPECT_TRUE(isSameSite(url("http://h/a"), url("http://h:80/b?c#d")));
    EXPECT_TRUE(isSameSite(url("https://h/"), url("https://h:443/")));
    EXPECT_TRUE(isSameSite(url("http://H/"), url("http://h/")));
    for (const char* other : {"https://h/", "http://h:81/", "http://www.h/", "http://h./", "ftp://h/", "/a"})
        EXPECT_FALSE(isSameSite(url("http://h/"), url(other))) << other;
}

TEST(Site, isOwnHost_knowsNumbersAndNamesThatAreNotPublic)
{
    for (const char* host : {"127.0.0.1", "10.1.2.3", "::1", "fd00::1", "localhost", "localhost.", "nas",
                             "NAS", "films.local", "films.lan", "a.home.arpa", "a.b.internal", "x.localhost"})
        EXPECT_TRUE(isOwnHost(QString::fromLatin1(host))) << host;
    for (const char* host : {"example.org", "example.org.", "local.example.org", "home.arpa.example.com",
                             "xlan.de", "127.0.0.1.example.org", "0x7f.1", "127.1", ""})
        EXPECT_FALSE(isOwnHost(QString::fromLatin1(host))) << host;
}

TEST(Site, isPublicAddress_refusesWhatIsNotOnTheInternet)
{
    for (const char* address : {"0.0.0.0",
                                "10.0.0.1",
                                "100.64.0.1",
                                "127.0.0.1",
                                "127.255.255.254",
                                "169.254.169.254",
                                "172.16.0.1",
                                "172.31.255.255",
                                "192.168.1.1",
                                "198.18.0.1",
                                "224.0.0.1",
                                "255.255.255.255",
                                "::",
                                "::1",
                                "fe80::1",
                                "fc00::1",
                                "fd12::1",
                                "fec0::1",
                                "ff02::1",
                                "::ffff:127.0.0.1",
                                "::ffff:10.0.0.1",
                                "::127.0.0.1",
                                "64:ff9b::7f00:1",
                                "2002:7f00:1::",
                                "2002:a00:1::1",
                                "2001:db8::1",
                                "2001::1",
                                "4000::1"})
        EXPECT_FALSE(isPublic(address)) << address;
}

TEST(Site, isPublicAddress_letsTheInternetBe)
{
    for (const char* address :
         {"1.1.1.1", "9.255.255.255", "11.0.0.0", "126.255.255.255", "172.15.255.255", "172.32.0.0",
          "192.167.255.255", "223.255.255.255", "2606:4700::1111", "2a00::1", "::ffff:1.1.1.1",
          "64:ff9b::101:101", "2002:101:101::1", "2003::1"})
        EXPECT_TRUE(isPublic(address)) << address;
}

TEST(Site, isPublicAddress_isFalse_forSocketsThatAreNoNetworks)
{
    sockaddr local{};
    local.sa_family = AF_UNIX;
    EXPECT_FALSE(isPublicAddress(local));
}

} // namespace

} // namespace kestro
