#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/text.h"
#include "headless/fixed_metrics.h"
#include "headless/headless_box.h"
#include "resources/string_table.h"
#include "support/documents.h"

namespace quorvale {
namespace {

constexpr int languages[] = {1033, 1041, 1042};

std::u16string TextOf(int id, int language) {
    return std::u16string(LoadText(id, LanguageFromId(language)));
}

HeadlessSetup In(int language) {
    HeadlessSetup setup;
    setup.LanguageId = language;
    return setup;
}

struct ExpectedButton {
    const char16_t* Key;
    ButtonKind Kind;
    std::optional<int> ToolTip;  ///< the number of its text
    const char16_t* PictureKey;
    Twips Width;
    bool Enabled;
};

const std::vector<ExpectedButton>& ExpectedButtons() {
    static const std::vector<ExpectedButton> buttons{
        {u"Find", ButtonKind::DropDown, 103, u"Find", 0, true},
        {u"", ButtonKind::Placeholder, {}, u"", 2000, true},
        {u"", ButtonKind::Separator, {}, u"", 0, true},
        {u"Ln", ButtonKind::Normal, 108, u"", 0, true},
        {u"", ButtonKind::Placeholder, {}, u"", 1000, true},
        {u"", ButtonKind::Separator, {}, u"", 0, true},
        {u"Collapsed", ButtonKind::Normal, 109, u"Collapsed", 0, false},
        {u"Edit", ButtonKind::Normal, 110, u"Edit", 0, false},
        {u"Grid", ButtonKind::Check, 111, u"Grid", 0, true},
        {u"Print", ButtonKind::Normal, {}, u"Print", 0, true},
    };
    return buttons;
}

TEST(ToolbarButtons, AreTheTenOfTheToolbarInEveryLanguage) {
    for (const int language : languages) {
        HeadlessBox box(In(language));
        const auto& buttons = box.Elements().tbMore.Buttons();
        ASSERT_EQ(buttons.size(), ExpectedButtons().size());
        for (std::size_t i = 0; i < buttons.size(); ++i) {
            SCOPED_TRACE(std::to_string(language) + " " + std::to_string(i + 1));
            const ExpectedButton& expected = ExpectedButtons()[i];
            const bool print = buttons[i].Key == u"Print";
            const std::u16string tip = expected.ToolTip ? TextOf(*expected.ToolTip, language) : u"";
            EXPECT_EQ(buttons[i].Key, expected.Key);
            EXPECT_EQ(buttons[i].Kind, expected.Kind);
            EXPECT_EQ(buttons[i].ToolTip, print ? u"Print" : tip);
            EXPECT_EQ(buttons[i].PictureKey, expected.PictureKey);
            EXPECT_EQ(buttons[i].Shown != nullptr, !buttons[i].PictureKey.empty());
            EXPECT_EQ(buttons[i].Width, expected.Width);
            EXPECT_EQ(buttons[i].Enabled, expected.Enabled);
            EXPECT_FALSE(buttons[i].Pressed);
        }
    }
}

TEST(ToolbarButtons, ThePicturesAreFoundByTheirKeys) {
    HeadlessBox box;
    EXPECT_EQ(box.Elements().ilMore.Count(), 8U);
    for (const auto* key :
         {u"left", u"right", u"Edit", u"Find", u"Print", u"Collapsed", u"Grid", u"Back"}) {
        EXPECT_NE(box.Elements().ilMore.Find(std::u16string(key)), nullptr);
    }
    EXPECT_EQ(box.Elements().ilExpand.Count(), 2U);
    for (const auto* key : {u"Collapsed", u"Expanded"}) {
        EXPECT_NE(box.Elements().ilExpand.Find(std::u16string(key)), nullptr);
    }
    EXPECT_EQ(box.Elements().tbMore.Button(u"Edit").Shown,
              box.Elements().ilMore.Find(std::u16string(u"Edit")));
}

TEST(ToolbarButtons, TheFindMenuHasFiveEntriesInEveryLanguage) {
    struct Entry {
        const char16_t* Key;
        int Caption;
    };
    const Entry expected[] = {
        {u"Next", 125}, {u"All", 104}, {u"WildAll", 105}, {u"", 106}, {u"Recent", 107}};
    for (const int language : languages) {
        HeadlessBox box(In(language));
        const std::vector<MenuItem>& menu = box.Elements().tbMore.Button(u"Find").Menu;
        ASSERT_EQ(menu.size(), 5U);
        for (std::size_t i = 0; i < menu.size(); ++i) {
            EXPECT_EQ(menu[i].Key, expected[i].Key);
            EXPECT_EQ(menu[i].Caption, TextOf(expected[i].Caption, language));
            EXPECT_EQ(menu[i].IsSeparator(), i == 3);
        }
    }
}

TEST(ToolbarButtons, AJapaneseFindMenuReadsSo) {
    HeadlessBox box(In(1041));
    std::vector<std::string> captions;
    for (const MenuItem& item : box.Elements().tbMore.Button(u"Find").Menu) {
        captions.push_back(ToUtf8(item.Caption));
    }
    EXPECT_EQ(captions,
              (std::vector<std::string>{"次を検索", "すべて検索", "ワイルドカードですべて検索", "-",
                                        "最新の検索リスト"}));
}

/// "#" is a separator.
void ExpectMenu(const Menu& menu, int ownId, const std::vector<std::u16string>& keys,
                int language) {
    EXPECT_EQ(menu.Caption, TextOf(ownId, language));
    ASSERT_EQ(menu.Items.size(), keys.size());
    int id = ownId;
    for (std::size_t i = 0; i < keys.size(); ++i) {
        const bool separator = keys[i] == u"#";
        EXPECT_EQ(menu.Items[i].IsSeparator(), separator) << i;
        EXPECT_EQ(menu.Items[i].Key, separator ? u"" : keys[i]);
        if (separator) continue;
        EXPECT_EQ(menu.Items[i].Caption, TextOf(++id, language));
    }
}

TEST(ContextMenus, HaveTheirCaptionsInOrderInEveryLanguage) {
    for (const int language : languages) {
        SCOPED_TRACE(language);
        HeadlessBox box(In(language));
        ExpectMenu(box.Elements().mnuPopup, 115,
                   {u"mnuPopupEdit", u"#", u"mnuPopupUndo", u"mnuUndoAll", u"#", u"mnuPopupPrev",
                    u"mnuPopupNext", u"#", u"mnuPopupCommit"},
                   language);
        ExpectMenu(box.Elements().mnuCollapse, 122,
                   {u"mnuCollapseCollapseAll", u"mnuCollapseExpandAll"}, language);
    }
}

TEST(Texts, StandInTheirPlacesBeforeAnyPropertyIsRead) {
    for (const int language : languages) {
        SCOPED_TRACE(language);
        const auto metrics = std::make_shared<FixedMetrics>();
        HostServices services;
        services.Metrics = metrics;
        services.Files = std::make_shared<MemoryFiles>();
        services.Xml = std::make_shared<PlainXml>();
        services.Memory = std::make_shared<PlainMemory>();
        services.Site = std::make_shared<HeadlessContainer>();
        services.Messages = std::make_shared<HeadlessMessages>();
        services.LanguageId = language;
        QuorvaleBox box(services);
        Surface& surface = box.Elements();
        for (int column = 0; column < 3; ++column) {
            EXPECT_EQ(surface.lvFound.Headers().at(static_cast<std::size_t>(column)),
                      TextOf(100 + column, language));
        }
        EXPECT_EQ(surface.tbMore.Button(1).ToolTip, TextOf(103, language));
        EXPECT_EQ(surface.tbMore.Button(4).ToolTip, TextOf(108, language));
        EXPECT_EQ(surface.tbMore.Button(1).Menu.at(0).Caption, TextOf(125, language));
        EXPECT_EQ(surface.txtSearch.Text(), TextOf(112, language));
        EXPECT_EQ(surface.txtLn.Text(), TextOf(113, language));
        EXPECT_EQ(surface.lblScrollTip.Caption(), TextOf(114, language));
        EXPECT_EQ(surface.mnuPopup.Items.at(0).Caption, TextOf(116, language));
    }
}

TEST(Texts, OfALanguageWithoutATableAreEnglish) {
    for (const int language : {0, -1, 1031, 2052}) {
        HeadlessBox box(In(language));
        EXPECT_EQ(box.Elements().tbMore.Button(u"Find").ToolTip, u"Find");
        EXPECT_EQ(box.Elements().mnuPopup.Items.at(0).Caption, u"&Edit");
    }
}

TEST(ButtonStates, EditFollowsTheDocumentAndCollapsedTheFirstRange) {
    HeadlessBox box;
    const auto enabled = [&](const char16_t* key) {
        return box.Elements().tbMore.Button(key).Enabled;
    };
    EXPECT_FALSE(enabled(u"Edit"));
    EXPECT_FALSE(enabled(u"Collapsed"));
    EXPECT_TRUE(enabled(u"Find"));
    box.Load(DocFile(30));
    EXPECT_TRUE(enabled(u"Edit"));
    EXPECT_FALSE(enabled(u"Collapsed"));
    box->CollapseLines(3, 9);
    EXPECT_TRUE(enabled(u"Collapsed"));
    box->text(Doc(30));
    EXPECT_FALSE(enabled(u"Edit")) << "a text of no file";
    EXPECT_FALSE(enabled(u"Collapsed")) << "the ranges went with their document";
    box->LoadFile(u"/doc.txt");
    EXPECT_TRUE(enabled(u"Edit"));
    box->LoadFile(u"/missing");
    EXPECT_FALSE(enabled(u"Edit"));
}

}  // namespace
}  // namespace quorvale
