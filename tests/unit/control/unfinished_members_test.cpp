#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <string_view>
#include <vector>

#include "box_by_id.h"
#include "control/member_table.h"
#include "support/documents.h"

namespace quorvale {
namespace {

/// A member that works but is not whole, and how one sees that.
struct Unfinished {
    std::string_view Member;
    std::string_view Missing;
    /// True while it is missing.
    std::function<bool(QuorvaleBox&)> IsMissing;
};

bool NothingSearchesWhileTyping(QuorvaleBox& box) {
    box.SearchText(u"L5");
    box.SearchText(u"");
    return box.Elements().tbMore.Button(u"Find").Enabled;
}

bool FindAllFindsNothing(QuorvaleBox& box) {
    box.SearchFiles(u"three.txt");
    box.SearchText(u"B");
    box.Elements().tbMore.UserMenuClick(u"Find", 1);
    return !box.Elements().lvFound.Visible();
}

std::vector<Unfinished> UnfinishedMembers() {
    return {
        {"SearchText", "typing does not search yet", NothingSearchesWhileTyping},
        {"SearchFiles", "nothing is searched yet", FindAllFindsNothing},
    };
}

class UnfinishedMembersTest : public BoxById {};

TEST_F(UnfinishedMembersTest, AreMembersOfTheInterface) {
    const auto members = DescribeMembers();
    for (const auto& unfinished : UnfinishedMembers()) {
        const bool exists = std::any_of(members.begin(), members.end(), [&](const auto& member) {
            return member.Name == unfinished.Member;
        });
        EXPECT_TRUE(exists) << unfinished.Member;
    }
}

TEST_F(UnfinishedMembersTest, AreEachNamedOnce) {
    std::vector<std::string_view> names;
    for (const auto& unfinished : UnfinishedMembers()) names.push_back(unfinished.Member);
    std::sort(names.begin(), names.end());
    EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
}

TEST_F(UnfinishedMembersTest, AreReallyUnfinished) {
    for (const auto& unfinished : UnfinishedMembers()) {
        box_->text(Doc(100));
        EXPECT_TRUE(unfinished.IsMissing(*box_))
            << unfinished.Member << ": no longer true that " << unfinished.Missing
            << ". Take it off the list and test that it works.";
    }
}

}  // namespace
}  // namespace quorvale
