#include "trailers/PageBase.h"

#include <gtest/gtest.h>

namespace kestro {

TEST(PageBase, from_answersNothing_whenThereIsNoSchemeOrHost)
{
    for (const char* text : {"", "/trailers/", "//h/trailers/", "http:", "http:x", "http:///x",
                             "mailto:ada@h", "http://h/a b/", "file:///trailers/", "http://:80/"})
        EXPECT_FALSE(PageBase::from(text)) << text;
}

TEST(PageBase, path_isTheRoot_whenNoneIsWritten)
{
    EXPECT_EQ(PageBase::from("http://h")->path(), "/");
    EXPECT_EQ(PageBase::from("http://h/")->path(), "/");
    EXPECT_EQ(PageBase::from("http://h/trailers/studio/")->path(), "/trailers/studio");
}

TEST(PageBase, parts_viewTheBaseItself_whenItWasCopied)
{
    auto first = PageBase::from("http://h/");
    const PageBase copy = *first;
    first.reset();
    EXPECT_EQ(copy.parts().host(), "h");
    EXPECT_EQ(copy.absoluteString(), "http://h/");
}

TEST(PageBase, absoluteURL_resolvesTheReference_whenItIsRelative)
{
    const auto base = PageBase::from("http://ada@h:8080/trailers/studio/?q#f");
    ASSERT_TRUE(base);
    const std::pair<const char*, const char*> rows[] = {
        {"t.mov", "http://ada@h:8080/trailers/studio/t.mov"},
        {"./t.mov", "http://ada@h:8080/trailers/studio/t.mov"},
        {"../t.mov", "http://ada@h:8080/trailers/t.mov"},
        {"../../../t.mov", "http://ada@h:8080/t.mov"},
        {"a/../b/./t.mov", "http://ada@h:8080/trailers/studio/b/t.mov"},
        {"..", "http://ada@h:8080/trailers/"},
        {".", "http://ada@h:8080/trailers/studio/"},
        {"/x/t.mov?a/../b#c", "http://ada@h:8080/x/t.mov?a/../b#c"},
        {"/x/../t.mov", "http://ada@h:8080/t.mov"},
        {"//o/t.mov", "http://o/t.mov"},
        {"?x.mov", "http://ada@h:8080/trailers/studio/?x.mov"},
        {"#x.mov", "http://ada@h:8080/trailers/studio/?q#x.mov"},
    };
    for (const auto& [reference, url] : rows)
        EXPECT_EQ(base->absoluteURL(reference), url) << reference;
}

TEST(PageBase, absoluteURL_isTheTextItself_whenItHasAScheme)
{
    const auto base = PageBase::from("http://h/trailers/");
    ASSERT_TRUE(base);
    for (const char* text : {"https://o/a/../%7eb.mov", "HTTP://H/x", "mailto:x"})
        EXPECT_EQ(base->absoluteURL(text), text);
}

TEST(PageBase, absoluteURL_addsTheRoot_whenTheBaseHasNoPath)
{
    EXPECT_EQ(PageBase::from("http://h")->absoluteURL("t.mov"), "http://h/t.mov");
    EXPECT_EQ(PageBase::from("http://h/trailers/page.html")->absoluteURL("t.mov"), "http://h/trailers/t.mov");
}

TEST(PageBase, absoluteURL_answersNothing_whenTheTextIsNoURL)
{
    const auto base = PageBase::from("http://h/trailers/");
    for (const char* text : {"a b.mov", "\xe9.mov", "50%.mov", "<t>.mov"})
        EXPECT_FALSE(base->absoluteURL(text)) << text;
}

} // namespace kestro
