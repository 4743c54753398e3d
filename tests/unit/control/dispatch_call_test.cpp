#include "control/dispatch_call.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "base/errors.h"
#include "box_by_id.h"
#include "control/dispatch.h"
#include "control/quorvale_box.h"

namespace quorvale {
namespace {

using namespace member_kind;

class WriteBack : public BoxById {};

TEST_F(WriteBack, OffsetToRowColWritesLineAndColumn) {
    Arguments arguments{Long(6), Long(0), Long(0)};
    Call(u"OffsetToRowCol", Method, arguments);
    std::int32_t o = 6;
    std::int32_t r = 0;
    std::int32_t c = 0;
    box_->OffsetToRowCol(o, r, &c);
    EXPECT_EQ(arguments, (Arguments{Long(6), Long(r), Long(c)}));
    EXPECT_EQ(r, 2);
}

TEST_F(WriteBack, OffsetToRowColWithoutAColumnStillWritesTheLine) {
    Arguments arguments{Long(6), Long(0)};
    Call(u"OffsetToRowCol", Method, arguments);
    EXPECT_EQ(arguments, (Arguments{Long(6), Long(2)}));
}

TEST_F(WriteBack, AnOffsetBelowOneComesBackAsOne) {
    Arguments arguments{Long(0), Long(0)};
    Call(u"OffsetToRowCol", Method, arguments);
    EXPECT_EQ(arguments, (Arguments{Long(1), Long(1)}));
}

TEST_F(WriteBack, AnOffsetPastTheEndMovesTheCaretAndWritesNothing) {
    Arguments arguments{Long(200000), 7.25, Variant{}};
    Call(u"OffsetToRowCol", Method, arguments);
    EXPECT_EQ(arguments, (Arguments{Long(200000), 7.25, Variant{}}));
    EXPECT_EQ(box_->row(), 100);
}

TEST_F(WriteBack, WrittenBackValuesKeepTheVariablesOwnType) {
    Arguments arguments{Text(u"-3"), std::int16_t{0}, 0.5};
    Call(u"OffsetToRowCol", Method, arguments);
    EXPECT_EQ(arguments, (Arguments{Text(u"1"), std::int16_t{1}, 1.0}));
    arguments = {2.0F, false, Text(u"0")};
    Call(u"OffsetToRowCol", Method, arguments);
    EXPECT_EQ(arguments, (Arguments{2.0F, true, Text(u"2")}));
    arguments = {Long(6), Variant{}, Variant{}};
    Call(u"OffsetToRowCol", Method, arguments);
    EXPECT_EQ(arguments, (Arguments{Long(6), Long(2), Long(2)}));
}

TEST_F(WriteBack, AValueTooLargeForTheCallersVariableIsAnOverflow) {
    std::u16string lines(40000, u'\n');
    box_->text(lines);
    Arguments arguments{Long(39990), std::int16_t{7}};
    try {
        Call(u"OffsetToRowCol", Method, arguments);
        ADD_FAILURE() << "nothing failed";
    } catch (const ControlError& error) {
        EXPECT_EQ(error.Kind(), ErrorKind::Overflow);
        EXPECT_NE(std::string(error.what()).find("(r)"), std::string::npos) << error.what();
    }
    EXPECT_EQ(arguments[1], Variant(std::int16_t{7}));
    EXPECT_EQ(box_->row(), 1);
}

TEST_F(WriteBack, ANegativeBorderWidthComesBackAsZero) {
    Arguments arguments{-50.0F};
    Call(u"LeftBorderWidth", Let, arguments);
    EXPECT_EQ(arguments, Arguments{0.0F});
    EXPECT_EQ(box_->LeftBorderWidth(), 0);
    arguments = {Text(u"-1")};
    Call(u"LeftBorderWidth", Let, arguments);
    EXPECT_EQ(arguments, Arguments{Text(u"0")});
    arguments = {600.1};
    Call(u"LeftBorderWidth", Let, arguments);
    EXPECT_EQ(arguments, Arguments{600.1}) << "an accepted width is left alone";
}

TEST_F(WriteBack, EnsureVisibleWritesTheLineBackAsClamped) {
    Arguments arguments{Long(5000)};
    Call(u"EnsureVisible", Method, arguments);
    EXPECT_EQ(arguments, Arguments{Long(101)}) << "the place just past the last line";
    arguments = {-7.5};
    Call(u"EnsureVisible", Method, arguments);
    EXPECT_EQ(arguments, Arguments{1.0});
    arguments = {Text(u"&H10")};
    Call(u"EnsureVisible", Method, arguments);
    EXPECT_EQ(arguments, Arguments{Text(u"&H10")}) << "a line that exists is left alone";
}

TEST_F(WriteBack, EnsureVisibleWithoutADocumentIsHarmless) {
    QuorvaleBox fresh(PlainServices(files_));
    Arguments arguments{Long(5000)};
    Invoke(fresh, member_id::EnsureVisible, Method, arguments);
    EXPECT_EQ(arguments, Arguments{Long(5000)});
}

TEST_F(WriteBack, MoveToLeavesTheCallersVariablesAlone) {
    Arguments arguments{Long(5000), Long(-3)};
    Call(u"MoveTo", Method, arguments);
    EXPECT_EQ(arguments, (Arguments{Long(5000), Long(-3)}));
    EXPECT_EQ(box_->row(), 100);
}

TEST_F(WriteBack, AHandlerMayDestroyTheControlDuringACall) {
    class Destroyer final : public QuorvaleBoxEvents {
    public:
        explicit Destroyer(std::unique_ptr<QuorvaleBox>& box) : box_(box) {}
        void Scrolled() override { box_.reset(); }

    private:
        std::unique_ptr<QuorvaleBox>& box_;
    };
    Destroyer destroyer(box_);
    box_->SetEvents(&destroyer);
    Arguments arguments{Long(5000)};
    Invoke(*box_, member_id::EnsureVisible, Method, arguments);
    EXPECT_EQ(box_, nullptr);
    EXPECT_EQ(arguments, Arguments{Long(101)});
}

}  // namespace
}  // namespace quorvale
