#include "adapters/posix_names.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

#include "adapters/record_fields.h"

namespace quorvale {
namespace {

using namespace std::string_literals;

TEST(PosixNames, EveryPathHasANameThatGivesItBack) {
    EXPECT_EQ(NameOf("/a b/\xE6\x97\xA5\xF0\x9F\x98\x80"), u"/a b/\u65E5\U0001F600");
    const std::u16string latin = {u'c', u'a', u'f', 0xDCE9};
    EXPECT_EQ(NameOf("caf\xE9"), latin);
    std::mt19937 random(3);
    for (int round = 0; round < 2000; ++round) {
        std::string path;
        for (auto i = random() % 20; i > 0; --i) path += static_cast<char>(random());
        ASSERT_EQ(PathOf(NameOf(path)), path);
    }
}

TEST(PosixNames, APathIsItsFolderAndItsLastName) {
    const auto split = [](std::string_view path) {
        const SplitPath parts = Split(path);
        return parts.Folder + "|" + parts.Base;
    };
    EXPECT_EQ(split("a"), ".|a");
    EXPECT_EQ(split("/a"), "/|a");
    EXPECT_EQ(split("/a/b"), "/a|b");
    EXPECT_EQ(split("a/b/"), "a/b|");
    EXPECT_EQ(split("../a"), "..|a");
    EXPECT_EQ(split(""), ".|");
}

TEST(RecordFields, ComeBackAsTheyWere) {
    const std::vector<std::string> fields = {"", "a", "b:c\n3:x"s, std::string(5000, '\0'), "7"};
    const std::string bytes = EncodeFields("title", fields);
    const auto decoded = DecodeFields("title", bytes + "more");
    ASSERT_TRUE(decoded);
    EXPECT_EQ(decoded->Fields, fields);
    EXPECT_EQ(decoded->Size, bytes.size());
    EXPECT_FALSE(DecodeFields("other", bytes));
    EXPECT_TRUE(DecodeFields("t", EncodeFields("t", {}))->Fields.empty());
}

TEST(RecordFields, AnyChangeMakesThemVoid) {
    const std::string bytes = EncodeFields("title", {"one", "two"});
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        EXPECT_FALSE(DecodeFields("title", bytes.substr(0, at))) << at;
        for (const char other : {'0', '9', ':', '\n', 'x', '\xFF'}) {
            std::string changed = bytes;
            if (changed[at] == other) continue;
            changed[at] = other;
            EXPECT_FALSE(DecodeFields("title", changed)) << at << other;
        }
    }
    EXPECT_FALSE(DecodeFields("title", "title\n99999999999999999999\n"));
    EXPECT_FALSE(DecodeFields("title", "title\n1\n18446744073709551615:x\n"));
}

TEST(RecordFields, DigestsTakeTheSameRoom) {
    const FileDigest digest{1, 0xFEDCBA9876543210U, 0};
    const std::string text = EncodeDigest(digest);
    EXPECT_EQ(text, "0000000000000001fedcba98765432100000000000000000");
    EXPECT_EQ(DecodeDigest(text), digest);
    EXPECT_EQ(EncodeDigest({}).size(), text.size());
    EXPECT_FALSE(DecodeDigest(text.substr(1)));
    EXPECT_FALSE(DecodeDigest(std::string(48, 'g')));
}

}  // namespace
}  // namespace quorvale
