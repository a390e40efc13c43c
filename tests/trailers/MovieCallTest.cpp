#include "trailers/MovieCall.h"

#include "trailers/PageBase.h"

#include <gtest/gtest.h>
#include <string>

namespace kestro {

namespace {

const PageBase& studio()
{
    static const PageBase base = *PageBase::from("http://H/trailers/studio/");
    return base;
}

/// "URL, size", with "AC" for a package call's; "none" where there is no record.
std::string described(const std::optional<TrailerRecord>& record)
{
    if (!record) return "none";
    EXPECT_FALSE(record->date);
    EXPECT_TRUE(record->other.isEmpty());
    const std::string size = record->size ? record->size->toStdString() : "no size";
    return record->url.toStdString() + ", " + size + (record->ac ? ", AC" : "");
}

std::string ofObject(std::string_view text)
{
    return described(movieOfObjectCall(text, studio()));
}

std::string ofPackage(std::string_view text)
{
    return described(movieOfPackageCall(text, studio()));
}

} // namespace

TEST(MovieCall, objectCall_givesTheHref_whenThereIsOne)
{
    EXPECT_EQ(ofObject("'http://H/trailers/x/p.mov', '480', '204', 'href', 'http://H/trailers/x/t_480.mov'"),
              "http://H/trailers/x/t_480.mov, 480 x 204");
    EXPECT_EQ(ofObject("'http://H/x/p.mov','480','204','a','b','href','/x/t.mov'"),
              "http://H/x/t.mov, 480 x 204");
    EXPECT_EQ(ofObject("http://H/x/p.mov,480,204,href,/x/t.mov"), "http://H/x/t.mov, 480 x 204");
    EXPECT_EQ(ofObject("\"http://H/x/p.mov\",\"480\",\"204\",\"href\",\"/x/T.MOV\""),
              "http://H/x/T.MOV, 480 x 204");
}

TEST(MovieCall, objectCall_buildsOnThePosterWithItsFile_whenTheHrefIsRelative)
{
    EXPECT_EQ(ofObject("'http://H/x/p.mov','1','2','href','t.mov'"), "http://H/x/p.mov/t.mov, 1 x 2");
    EXPECT_EQ(ofObject("'http://H/x/p.mov','1','2','href','../t.mov'"), "http://H/x/t.mov, 1 x 2");
    EXPECT_EQ(ofObject("'p.mov','1','2','href','../t.mov'"), "http://H/trailers/studio/t.mov, 1 x 2");
}

TEST(MovieCall, objectCall_takesAWholeMovieURLAsItStands_whenItIsElsewhere)
{
    EXPECT_EQ(ofObject("'http://H/p.mov','1','2','href','https://other:8/t.mov'"),
              "https://other:8/t.mov, 1 x 2");
    EXPECT_EQ(ofObject("'p q.mov','1','2','href','http://H/t.mov'"), "http://H/t.mov, 1 x 2");
}

TEST(MovieCall, objectCall_givesThePoster_whenTheHrefLeadsNowhere)
{
    for (const char* href : {"#top", "http://other/t.mp4", "http:t.mov", "ftp:/t.mov", "t u.mov", ""})
        EXPECT_EQ(ofObject("'http://H/p.mov','1','2','href','" + std::string(href) + "'"),
                  "http://H/p.mov, 1 x 2")
            << href;
    EXPECT_EQ(ofObject("'p.mov','1','2'"), "http://H/trailers/studio/p.mov, 1 x 2");
    EXPECT_EQ(ofObject("'p.mov','1','2','HREF','/t.mov'"), "http://H/trailers/studio/p.mov, 1 x 2");
    EXPECT_EQ(ofObject("'p.mov','1','2', href,'/t.mov'"), "http://H/trailers/studio/p.mov, 1 x 2");
}

TEST(MovieCall, objectCall_takesTheFirstHref_whenThereAreTwo)
{
    EXPECT_EQ(ofObject("'p.mov','1','2','href','/a.mov','href','/b.mov'"), "http://H/a.mov, 1 x 2");
    EXPECT_EQ(ofObject("'href','/a.mov','2'"), "http://H/a.mov, --- x 2");
}

TEST(MovieCall, objectCall_givesNothing_whenTheResultIsNoMovie)
{
    EXPECT_EQ(ofObject("'p.jpg','1','2'"), "none");
    EXPECT_EQ(ofObject("'p.mov','1','2','href','/t.html'"), "none");
    EXPECT_EQ(ofObject("'p.mov?x','1','2'"), "none");
    EXPECT_EQ(ofObject("'p q.mov','1','2'"), "none");
}

TEST(MovieCall, objectCall_readsBareSides_withoutSpacesAndHighBytes)
{
    EXPECT_EQ(ofObject("'p.mov', 4 80\xa0, 204px"), "http://H/trailers/studio/p.mov, 480 x 204px");
    EXPECT_EQ(ofObject("'p.mov',' 480',\"'204'\""), "http://H/trailers/studio/p.mov,  480 x 204");
}

TEST(MovieCall, objectCall_writesThreeDashes_whenASideIsZeroOrNone)
{
    EXPECT_EQ(ofObject("'p.mov','','0'"), "http://H/trailers/studio/p.mov, --- x ---");
    EXPECT_EQ(ofObject("'p.mov',,'100%'"), "http://H/trailers/studio/p.mov, --- x 100%");
}

TEST(MovieCall, objectCall_isSkipped_whenArgumentsAreMissing)
{
    for (const char* text : {"", "'p.mov'", "'p.mov','1'", "'p.mov','1','2','href'", "'p.mov','1','href'"})
        EXPECT_EQ(ofObject(text), "none") << text;
}

TEST(MovieCall, packageCall_givesTheMovie_withTheSizeOfItsAttributes)
{
    EXPECT_EQ(ofPackage("'m1', '/trailers/x/t_480.mov', {width:480, height:204}"),
              "http://H/trailers/x/t_480.mov, 480 x 204, AC");
    EXPECT_EQ(ofPackage("'m1','t.MOV',{\n\twidth: 6 40,\n\theight : 272,\n\tcontroller:true}"),
              "http://H/trailers/studio/t.MOV, 640 x 272, AC");
    EXPECT_EQ(ofPackage("'m1','http://o/t.mov',{width:1,height:2},'x'"), "http://o/t.mov, 1 x 2, AC");
}

TEST(MovieCall, packageCall_writesThreeDashes_whenASideIsQuotedOrMissing)
{
    EXPECT_EQ(ofPackage("'m1','/t.mov',{width:'480',height:204}"), "http://H/t.mov, --- x 204, AC");
    EXPECT_EQ(ofPackage("'m1','/t.mov',{'width':480,Height:204}"), "http://H/t.mov, --- x ---, AC");
    EXPECT_EQ(ofPackage("'m1','/t.mov',{}"), "http://H/t.mov, --- x ---, AC");
}

TEST(MovieCall, packageCall_isSkipped_whenItIsMalformedOrNoMovie)
{
    for (const char* text :
         {"", "'/t.mov'", "'m1','/t.mov'", "'m1','/t.mov',{width:1", "'m1','/t.mov',width:1}",
          "'m1','/t.mov',}{", "'m1','/t.mp4',{}", "'m1','/t u.mov',{}"})
        EXPECT_EQ(ofPackage(text), "none") << text;
}

} // namespace kestro
