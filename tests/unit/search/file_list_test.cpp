#include "search/file_list.h"

#include <gtest/gtest.h>

#include <vector>

namespace quorvale {
namespace {

std::vector<std::u16string> Names(std::u16string names) {
    FileList list(std::move(names));
    const std::size_t count = list.Count();
    std::vector<std::u16string> taken;
    while (const auto name = list.Next()) taken.push_back(*name);
    EXPECT_EQ(taken.size(), count);
    return taken;
}

using List = std::vector<std::u16string>;

TEST(FileLists, EachNameReachesToTheNextReturn) {
    EXPECT_EQ(Names(u"/a\r/b c\r/d"), (List{u"/a", u"/b c", u"/d"}));
    EXPECT_EQ(Names(u"/a\r\n/b"), (List{u"/a", u"\n/b"}));
}

TEST(FileLists, NamesMayBeEmptyButNotBehindTheLastReturn) {
    EXPECT_EQ(Names(u""), List{});
    EXPECT_EQ(Names(u"/a\r"), (List{u"/a"}));
    EXPECT_EQ(Names(u"\r/a\r\r/b\r\r"), (List{u"", u"/a", u"", u"/b", u""}));
}

TEST(FileNames, ThePartBehindTheFolderIsShown) {
    EXPECT_EQ(FileNamePart(u"/usr/share/a.txt"), u"a.txt");
    EXPECT_EQ(FileNamePart(u"a.txt"), u"a.txt");
    EXPECT_EQ(FileNamePart(u"/usr/"), u"");
    EXPECT_EQ(FileNamePart(u""), u"");
#ifndef _WIN32
    EXPECT_EQ(FileNamePart(u"/a\\b"), u"a\\b") << "a character like any other";
#endif
}

}  // namespace
}  // namespace quorvale
