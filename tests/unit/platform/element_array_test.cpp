#include "platform/element_array.h"

#include <gtest/gtest.h>

#include "platform/simple_elements.h"
#include "support/error_of.h"

namespace quorvale {
namespace {

Label Model() {
    Label model("lblLine");
    model.SetTag(u"-1");
    model.SetWidth(40000);
    model.SetBackColor(0x00C0FFEE);
    model.SetFont({.Name = u"Mono", .Size = 11});
    return model;
}

TEST(ElementArray, ElementZeroExistsFromTheStartAndIsVisible) {
    auto array = ElementArray<Label>::WithModel(Model());
    EXPECT_EQ(array.LowerBound(), 0);
    EXPECT_EQ(array.UpperBound(), 0);
    EXPECT_EQ(array[0].Index(), 0);
    EXPECT_EQ(array[0].Name(), "lblLine");
    EXPECT_TRUE(array[0].Visible());
}

TEST(ElementArray, AFurtherElementIsAHiddenCopyOfElementZero) {
    auto array = ElementArray<Label>::WithModel(Model());
    array[0].SetForeColor(0x00112233);
    Label& copy = array.Load();
    EXPECT_EQ(copy.Index(), 1);
    EXPECT_FALSE(copy.Visible());
    EXPECT_TRUE(array[0].Visible());
    EXPECT_EQ(copy.Tag(), u"-1");
    EXPECT_EQ(copy.Width(), 40000);
    EXPECT_EQ(copy.BackColor(), 0x00C0FFEEU);
    EXPECT_EQ(copy.ForeColor(), 0x00112233U);
    EXPECT_EQ(copy.Font(), array[0].Font());
}

TEST(ElementArray, ACopyHasAFontOfItsOwn) {
    auto array = ElementArray<Label>::WithModel(Model());
    array.Load().SetBold(true);
    EXPECT_FALSE(array[0].Bold());
}

TEST(ElementArray, ElementsKeepTheirAddressWhileTheArrayGrows) {
    auto array = ElementArray<Label>::WithModel(Model());
    const Label* first = &array[0];
    const Label* second = &array.Load();
    for (int i = 0; i < 200; ++i) array.Load();
    EXPECT_EQ(&array[0], first);
    EXPECT_EQ(&array[1], second);
    EXPECT_EQ(array.UpperBound(), 201);
    EXPECT_EQ(array[201].Index(), 201);
}

TEST(ElementArray, UnloadingAboveZeroLeavesElementZero) {
    auto array = ElementArray<Label>::WithModel(Model());
    array.Load();
    array.Load();
    array.UnloadAbove(0);
    EXPECT_EQ(array.UpperBound(), 0);
    EXPECT_TRUE(array.Has(0));
    array.UnloadAbove(0);
    EXPECT_EQ(array.UpperBound(), 0);
    EXPECT_EQ(array.Load().Index(), 1) << "indexes are used again, without a gap";
}

TEST(ElementArray, AnIndexWithoutAnElementIsAnError) {
    auto array = ElementArray<Label>::WithModel(Model());
    array.Load();
    const auto& readOnly = array;
    for (const int index : {-1, 2, 129}) {
        EXPECT_FALSE(array.Has(index));
        EXPECT_EQ(ErrorOf([&] { array[index].SetLeft(0); }), ErrorKind::Index) << index;
        EXPECT_EQ(ErrorOf([&] { static_cast<void>(readOnly[index].Left()); }), ErrorKind::Index);
    }
}

TEST(ElementArray, AnArrayMayStartEmptyAndCountFromOne) {
    ElementArray<LineShape> grid("lnGrid", 1);
    EXPECT_EQ(grid.LowerBound(), 1);
    EXPECT_EQ(grid.UpperBound(), 0);
    EXPECT_EQ(grid.begin(), grid.end());
    EXPECT_FALSE(grid.Has(0));
    LineShape& line = grid.Load();
    EXPECT_EQ(line.Index(), 1);
    EXPECT_EQ(line.Name(), "lnGrid");
    EXPECT_FALSE(line.Visible());
    EXPECT_EQ(grid.UpperBound(), 1);
    EXPECT_EQ(ErrorOf([&] { grid[0].SetX1(0); }), ErrorKind::Index);
}

}  // namespace
}  // namespace quorvale
