#include "platform/keyed_pictures.h"

#include <gtest/gtest.h>

#include "support/error_of.h"

namespace quorvale {
namespace {

PicturePtr Named(const char* name) { return std::make_shared<const Picture>(name, 240, 240); }

TEST(ImageList, PicturesAreFoundByKeyWhateverItsCaseAndByNumberFromOne) {
    ImageList list;
    ASSERT_TRUE(list.Add(u"Bug", Named("bug")));
    ASSERT_TRUE(list.Add(u"Note", Named("note")));
    EXPECT_EQ(list.Find(std::u16string(u"bUG"))->Name(), "bug");
    EXPECT_EQ(list.Find(std::int32_t{2})->Name(), "note");
    EXPECT_EQ(list.Find(std::int16_t{1})->Name(), "bug");
    EXPECT_EQ(list.Find(2.4)->Name(), "note");
    EXPECT_EQ(list.Count(), 2U);
}

TEST(ImageList, AKeyOfDigitsIsAKeyAndNoNumber) {
    ImageList list;
    list.Add(u"a", Named("first"));
    list.Add(u"1", Named("second"));
    EXPECT_EQ(list.Find(std::u16string(u"1"))->Name(), "second");
    EXPECT_EQ(list.Find(std::int32_t{1})->Name(), "first");
}

TEST(ImageList, AMissingKeyOrNumberIsAnIndexError) {
    ImageList list;
    list.Add(u"Bug", Named("bug"));
    EXPECT_EQ(ErrorOf([&] { list.Find(std::u16string(u"Note")); }), ErrorKind::Index);
    for (const std::int32_t number : {0, -1, 2}) {
        EXPECT_EQ(ErrorOf([&] { list.Find(number); }), ErrorKind::Index) << number;
    }
}

TEST(ImageList, AnEmptyListHasNothing) {
    const ImageList list;
    EXPECT_EQ(ErrorOf([&] { list.Find(std::int32_t{1}); }), ErrorKind::Index);
    EXPECT_EQ(ErrorOf([&] { list.Find(std::u16string()); }), ErrorKind::Index);
}

TEST(ImageList, ANullPictureAndATakenKeyAreRefused) {
    ImageList list;
    EXPECT_FALSE(list.Add(u"Bug", nullptr));
    EXPECT_TRUE(list.Add(u"Bug", Named("bug")));
    EXPECT_FALSE(list.Add(u"BUG", Named("other")));
    EXPECT_EQ(list.Count(), 1U);
    EXPECT_EQ(list.Find(std::u16string(u"bug"))->Name(), "bug");
}

TEST(ImageList, EmptyKeysAreFree) {
    ImageList list;
    EXPECT_TRUE(list.Add(u"", Named("one")));
    EXPECT_TRUE(list.Add(u"", Named("two")));
    EXPECT_EQ(list.Find(std::int32_t{2})->Name(), "two");
}

TEST(SameKey, OnlyTheCaseOfLettersDoesNotCount) {
    EXPECT_TRUE(SameKey(u"Find", u"fIND"));
    EXPECT_TRUE(SameKey(u"", u""));
    EXPECT_FALSE(SameKey(u"Find", u"Find "));
    EXPECT_FALSE(SameKey(u"[", u"{"));
    EXPECT_FALSE(SameKey(u"@", u"`"));
}

}  // namespace
}  // namespace quorvale
