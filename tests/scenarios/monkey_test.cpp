#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <optional>
#include <string>

#include "support/chance.h"
#include "support/random_host.h"
#include "support/random_user.h"
#include "support/watched_box.h"

namespace quorvale {
namespace {

constexpr unsigned shards = 10;
constexpr unsigned seedsPerShard = 40;
constexpr unsigned stepsPerSeed = 500;
static_assert(shards * seedsPerShard * stepsPerSeed == 200'000);

HeadlessSetup SetupOf(unsigned seed) {
    HeadlessSetup setup;
    setup.Options.WideScrollBars = seed % 5 == 1;
    setup.Options.TallView = seed % 7 == 3;
    setup.Height = seed % 3 == 0 ? 3000 : 7560;
    return setup;
}

RandomDocuments DocumentsOf(unsigned seed) {
    RandomDocuments documents;
    // So long that the bar steps over several lines.
    if (seed % 40 == 9) documents.Lines = 33000;
    if (seed % 20 == 4) documents.Nested = 70;
    documents.PastTheEnd = seed % 4 == 2;
    return documents;
}

std::string LastActions(const WatchedBox& box) {
    std::string all;
    for (const std::string& action : box.LastActions()) all += "\n  " + action;
    return all;
}

void RunSeed(unsigned seed, unsigned steps, bool told) {
    Chance chance(seed);
    WatchedBox box(SetupOf(seed), told);
    RandomHost host(box, chance, DocumentsOf(seed));
    RandomUser user(box, chance);
    if (seed % 3 == 1) box.InsideEvents = [&host] { return host.ActInside(); };
    box->AddButton(u"Mine", std::make_shared<Picture>("mine", 240, 240));
    // Some do a good deal before there is any document.
    const unsigned firstText = seed % 6 == 0 ? 30 : 1;
    for (unsigned step = 1; step <= steps; ++step) {
        if (step == firstText) {
            host.ShowAnotherText();
        } else if (chance.Number(0, 99) < 65) {
            user.Act();
        } else {
            host.Act();
        }
        box.Check(chance);
        if (!testing::Test::HasFailure()) continue;
        ADD_FAILURE() << "QUORVALE_SEED=" << seed << " QUORVALE_STEP=" << step
                      << "; the last actions:" << LastActions(box);
        return;
    }
}

std::optional<unsigned> FromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    if (value == nullptr) return std::nullopt;
    return static_cast<unsigned>(std::strtoul(value, nullptr, 10));
}

/// A user and a host who do anything at all, in an order that the seed alone decides. After each
/// action everything that must hold at rest is looked at.
///
/// A failure names its seed and step. QUORVALE_SEED=<seed> runs that seed alone and tells every
/// action; QUORVALE_STEP=<step> stops it there.
class Monkey : public testing::TestWithParam<unsigned> {};

TEST_P(Monkey, NothingThatUserOrHostDoLeavesAnythingWrong) {
    const unsigned first = GetParam() * seedsPerShard;
    const auto wanted = FromEnvironment("QUORVALE_SEED");
    // A seed that no shard has would be replayed by nobody.
    ASSERT_LT(wanted.value_or(0), shards * seedsPerShard) << "there is no such seed";
    const unsigned steps = FromEnvironment("QUORVALE_STEP").value_or(stepsPerSeed);
    for (unsigned seed = first; seed < first + seedsPerShard && !HasFailure(); ++seed) {
        if (!wanted || seed == *wanted) RunSeed(seed, steps, wanted.has_value());
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Monkey, testing::Range(0U, shards));

}  // namespace
}  // namespace quorvale
