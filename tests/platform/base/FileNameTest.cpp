#include "platform/base/FileName.h"

#include <gtest/gtest.h>

namespace kestro {

namespace {

struct Case {
    const char* path;
    const char* expected;
};

} // namespace

TEST(FileName, nameOf_isTheLastPart_withoutSlashesAtTheEnd)
{
    for (const Case& c : {Case{"/a/b.mov", "b.mov"}, Case{"b.mov", "b.mov"}, Case{"/a/b/", "b"},
                          Case{"/a/b.saver//", "b.saver"}, Case{"/", ""}, Case{"", ""}}) {
        EXPECT_EQ(nameOf(QString::fromUtf8(c.path)), QString::fromUtf8(c.expected)) << c.path;
        EXPECT_EQ(lastPart(std::string_view(c.path)), c.expected);
    }
}

TEST(FileName, extensionOf_isWhatFollowsTheLastPointOfTheName)
{
    for (const Case& c :
         {Case{"/a/b.mov", "mov"}, Case{"b.tar.Gz", "Gz"}, Case{"/a.b/c", ""}, Case{"/a.b/", "b"},
          Case{"a.", ""}, Case{".hidden", ""}, Case{"/a/.hidden", ""}, Case{".a.b", "b"}, Case{"a", ""},
          Case{"", ""}, Case{"a/\xc3\xbc.\xc3\xbc", "\xc3\xbc"}}) {
        EXPECT_EQ(extensionOf(QString::fromUtf8(c.path)), QString::fromUtf8(c.expected)) << c.path;
        EXPECT_EQ(extensionIn(std::string_view(c.path)), c.expected);
    }
}

} // namespace kestro
