// Measures folding in a document of ten million lines against one plain pass over the depths, a
// step over a long fold against a step without one, and the caret in a line of ten million
// characters. Usage: folding_bench.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "headless/headless_box.h"
#include "platform/keys.h"
#include "timing.h"

namespace {

using namespace quorvale;
using namespace quorvale::bench;

constexpr std::int32_t lines = 10'000'000;
constexpr std::int32_t ranges = 100'000;
constexpr std::size_t longLine = 10'000'000;

std::string LinesOfText(std::int32_t count) {
    std::string bytes;
    bytes.reserve(static_cast<std::size_t>(count) * 2);
    for (std::int32_t line = 1; line < count; ++line) bytes += "x\n";
    return bytes;
}

/// Ranges side by side: heads everywhere, nine lines of ten hidden.
void RegisterSideBySide(QuorvaleBox& box) {
    constexpr std::int32_t step = lines / ranges;
    for (std::int32_t k = 0; k < ranges; ++k) {
        box.CollapseLines(k * step + 1, k * step + step * 9 / 10);
    }
}

/// Fifty ranges in one another at a time, each thousands of lines long: half a billion lines
/// when they are added up.
void RegisterNested(QuorvaleBox& box) {
    constexpr std::int32_t levels = 50;
    constexpr std::int32_t step = lines / (ranges / levels);
    for (std::int32_t k = 0; k < ranges; ++k) {
        const std::int32_t first = k / levels * step;
        const std::int32_t level = k % levels;
        box.CollapseLines(first + 1 + level, first + step - level);
    }
}

void FoldAndUnfold(HeadlessBox& box, const char* name, void (*registered)(QuorvaleBox&)) {
    box.Load(LinesOfText(lines));
    registered(box.Box());
    std::vector<std::int16_t> depths(static_cast<std::size_t>(lines) + 1, 0);
    std::vector<Timing> timings = {
        {"a plain pass over the depths",
         [&] {
             for (std::int16_t& depth : depths) depth = static_cast<std::int16_t>(depth + 1);
         }},
        {std::string("Collapse All, ") + name, [&] { box->CollapseAll(); }},
        {std::string("Expand All, ") + name, [&] { box->ExpandAll(); }}};
    Measure(timings);
    const double pass = timings[0].Middle();
    Print(timings[0], "");
    for (std::size_t i = 1; i < timings.size(); ++i) {
        Print(timings[i], Ratio(timings[i].Middle(), pass, "the pass, 10 wanted"));
    }
    if (depths.front() != rounds + 1) std::puts("  the pass was not made");
}

void StepOverAFold(HeadlessBox& box) {
    constexpr std::int32_t head = 1'000'000;
    constexpr std::int32_t last = 2'000'000;
    constexpr std::int32_t plain = 4'000'000;
    box.Load(LinesOfText(lines));
    box.EnterText();
    box->CollapseLines(head, last);
    box->CollapseAll();
    // From the top, so that the row always comes to stand in the middle and the step scrolls.
    const auto step = [&](const char* name, std::int32_t from, std::int16_t key) {
        return Timing{name, [&box, key] { box.Press(key); },
                      [&box, from] {
                          box->MoveTo(1, 1);
                          box->MoveTo(from, 1);
                      }};
    };
    std::vector<Timing> timings = {
        step("Down without a fold", plain, key_code::Down),
        step("Down over a fold of a million lines", head, key_code::Down),
        step("Up without a fold", plain, key_code::Up),
        step("Up over a fold of a million lines", last + 1, key_code::Up)};
    Measure(timings);
    for (std::size_t i = 0; i < timings.size(); i += 2) {
        Print(timings[i], "");
        char more[80];
        std::snprintf(more, sizeof more, "%+.3f ms, 1 wanted",
                      timings[i + 1].Middle() - timings[i].Middle());
        Print(timings[i + 1], more);
    }
}

void CaretInALongLine(bool wideBars) {
    HeadlessSetup setup;
    setup.Options.WideScrollBars = wideBars;
    HeadlessBox box(setup);
    box.Load("first\r\n" + std::string(longLine, 'x') + "\r\nlast");
    box.EnterText();
    constexpr auto middle = static_cast<std::int32_t>(longLine / 2);
    std::vector<Timing> timings = {
        {"MoveTo its middle", [&] { box->MoveTo(2, middle); }, [&] { box->MoveTo(2, 1); }},
        {"Down to the place above its middle", [&] { box.Press(key_code::Down); },
         [&] {
             box->MoveTo(2, middle);
             box->row(1);
         }},
        {"Right in its middle", [&] { box.Press(key_code::Right); },
         [&] { box->MoveTo(2, middle); }},
        {"End", [&] { box.Press(key_code::End); }, [&] { box->MoveTo(2, 1); }},
        {"a press right of all",
         [&] {
             box.MousePress(1, {mouse_button::Left, 0, 1e12, 10});
         },
         [&] { box->MoveTo(1, 1); }}};
    Measure(timings);
    for (const Timing& timing : timings) Print(timing, "50 ms wanted");
}

}  // namespace

int main() {
    try {
        std::printf("%d lines, %d ranges, medians of %d\n", lines, ranges, rounds);
        {
            HeadlessBox box;
            FoldAndUnfold(box, "ranges side by side", RegisterSideBySide);
            FoldAndUnfold(box, "long nested ranges", RegisterNested);
            StepOverAFold(box);
        }
        for (const bool wideBars : {false, true}) {
            std::printf("a line of %zu characters%s\n", longLine, wideBars ? ", wide bars" : "");
            CaretInALongLine(wideBars);
        }
        return EXIT_SUCCESS;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return EXIT_FAILURE;
    }
}
