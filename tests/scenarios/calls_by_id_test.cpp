#include "support/calls_by_id.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "headless/headless_box.h"
#include "support/documents.h"

namespace quorvale {
namespace {

TEST(EveryMemberById, DoesWhatItIsToDo) {
    HeadlessBox box;
    box->text(Doc(100));
    CallsById calls(box.Box());
    calls.CallRightly();
    EXPECT_THAT(calls.Faults(), testing::IsEmpty());
    EXPECT_EQ(calls.KindsCalled(), 52U) << "every kind of every member";
}

TEST(EveryMemberById, RefusesWrongArgumentsAndStaysAsItWas) {
    HeadlessBox box;
    box->text(Doc(100));
    CallsById calls(box.Box());
    calls.CallWrongly();
    EXPECT_THAT(calls.Faults(), testing::IsEmpty());
    EXPECT_GT(calls.RefusalsSeen(), 33 * 5);
}

}  // namespace
}  // namespace quorvale
