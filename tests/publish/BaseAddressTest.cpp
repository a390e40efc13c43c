#include "publish/BaseAddress.h"

#include <gtest/gtest.h>

namespace kestro {
namespace {

struct AddressCase {
    const char* address;
    const char* text;
    const char* path;
    bool isFollowed;
};

class GoodAddress : public testing::TestWithParam<AddressCase> {};

TEST_P(GoodAddress, isReadWithItsPathEscaped)
{
    const auto base = BaseAddress::parse(QString::fromUtf8(GetParam().address));
    ASSERT_TRUE(base.isOk()) << base.error().toStdString();
    EXPECT_EQ(base.value().text, QString::fromUtf8(GetParam().text));
    EXPECT_EQ(base.value().path, QString::fromUtf8(GetParam().path));
    EXPECT_EQ(base.value().isFollowed(), GetParam().isFollowed);
}

INSTANTIATE_TEST_SUITE_P(
    Addresses, GoodAddress,
    testing::Values(AddressCase{"http://h", "http://h", "", true},
                    AddressCase{"http://h/", "http://h", "", true},
                    AddressCase{"https://h:8080/films/", "https://h:8080/films", "/films", false},
                    AddressCase{"http://h/trailers-a", "http://h/trailers-a", "/trailers-a", true},
                    AddressCase{"http://h/a//b/../c", "http://h/a/c", "/a/c", false},
                    AddressCase{"http://h/it's(a),b", "http://h/it%27s%28a%29%2Cb", "/it%27s%28a%29%2Cb",
                                false},
                    AddressCase{"http://h/%C3%BC%20x", "http://h/%C3%BC%20x", "/%C3%BC%20x", false}));

TEST(BaseAddress, isRefused_whenItIsNoAddressOfAServer)
{
    for (const char* address : {"", "h", "/films", "ftp://h/", "file:///srv", "http://", "http:///x",
                                "http://h/?a=1", "http://h/#top", "http://me:secret@h/", "http://h h/"})
        EXPECT_FALSE(BaseAddress::parse(QString::fromUtf8(address)).isOk()) << address;
}

} // namespace
} // namespace kestro
