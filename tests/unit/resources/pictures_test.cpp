#include "resources/pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <vector>

namespace quorvale {
namespace {

std::vector<std::string> KeysOf(std::span<const PictureData> pictures) {
    std::vector<std::string> keys;
    for (const auto& picture : pictures) keys.emplace_back(picture.Key);
    return keys;
}

std::vector<PictureData> AllPictures() {
    std::vector<PictureData> all(ToolbarPictures().begin(), ToolbarPictures().end());
    all.insert(all.end(), GlyphPictures().begin(), GlyphPictures().end());
    all.push_back(CaretMarkerPicture());
    all.push_back(CorrectionMarkPicture());
    all.push_back(WindowIcon());
    return all;
}

/// Every "#rrggbb" in the text, as a number.
std::set<unsigned> ColoursIn(std::string_view svg) {
    std::set<unsigned> colours;
    for (auto at = svg.find('#'); at != svg.npos; at = svg.find('#', at + 1)) {
        colours.insert(
            static_cast<unsigned>(std::stoul(std::string(svg.substr(at + 1, 6)), nullptr, 16)));
    }
    return colours;
}

double Luminance(unsigned colour) {
    const auto linear = [&](unsigned shift) {
        const double part = ((colour >> shift) & 0xFF) / 255.0;
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(16) + 0.7152 * linear(8) + 0.0722 * linear(0);
}

double Contrast(unsigned one, unsigned other) {
    const auto [dark, light] = std::minmax({Luminance(one), Luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

TEST(Pictures, TheToolbarHasItsEightPicturesOfSixteenPixels) {
    EXPECT_EQ(KeysOf(ToolbarPictures()),
              (std::vector<std::string>{"left", "right", "Edit", "Find", "Print", "Collapsed",
                                        "Grid", "Back"}));
    for (const auto& picture : ToolbarPictures()) {
        EXPECT_EQ(picture.Width, 16) << picture.Key;
        EXPECT_EQ(picture.Height, 16) << picture.Key;
    }
}

TEST(Pictures, TheGlyphsAre180TwipsSquare) {
    EXPECT_EQ(KeysOf(GlyphPictures()), (std::vector<std::string>{"Collapsed", "Expanded"}));
    for (const auto& picture : GlyphPictures()) {
        EXPECT_EQ(picture.Width * 15, 180) << picture.Key;
        EXPECT_EQ(picture.Height * 15, 180) << picture.Key;
    }
}

TEST(Pictures, TheMarkerIs240TwipsSquare) {
    EXPECT_EQ(CaretMarkerPicture().Width * 15, 240);
    EXPECT_EQ(CaretMarkerPicture().Height * 15, 240);
}

TEST(Pictures, TheCorrectionMarkIs75TwipsWide) {
    EXPECT_EQ(CorrectionMarkPicture().Width * 15, 75);
}

TEST(Pictures, TheSvgTextDeclaresThePicturesSize) {
    for (const auto& picture : AllPictures()) {
        const auto width = std::to_string(picture.Width);
        const auto height = std::to_string(picture.Height);
        const auto opening = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width +
                             "\" height=\"" + height + "\" viewBox=\"0 0 " + width + " " + height +
                             "\">";
        EXPECT_TRUE(picture.Svg.starts_with(opening)) << picture.Key << ": " << picture.Svg;
        EXPECT_TRUE(picture.Svg.ends_with("</svg>\n")) << picture.Key;
    }
}

TEST(Pictures, NoTwoPicturesLookTheSame) {
    std::set<std::string_view> texts;
    for (const auto& picture : AllPictures()) texts.insert(picture.Svg);
    EXPECT_EQ(texts.size(), AllPictures().size());
}

TEST(Pictures, EveryColourStandsOutOnLightAndDarkWindows) {
    auto pictures = AllPictures();
    pictures.pop_back();  // the window icon brings its own ground
    for (const auto& picture : pictures) {
        EXPECT_FALSE(ColoursIn(picture.Svg).empty()) << picture.Key;
        for (const unsigned colour : ColoursIn(picture.Svg)) {
            for (const unsigned ground : {0xFFFFFFU, 0xEFEFEFU, 0x323232U, 0x1E1E1EU}) {
                EXPECT_GE(Contrast(colour, ground), 3.0)
                    << picture.Key << ": " << std::hex << colour << " on " << ground;
            }
        }
    }
}

}  // namespace
}  // namespace quorvale
