#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace {

/// Gives each test an empty current directory of its own and takes it away afterwards, so that
/// tests that touch files can neither meet each other nor leave anything behind.
class PrivateDirectory : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        std::filesystem::create_directories(QUORVALE_TEST_PLACES);
        std::string name = QUORVALE_TEST_PLACES "/XXXXXX";
        if (mkdtemp(name.data()) == nullptr || chdir(name.c_str()) != 0) {
            GTEST_FAIL() << "no private directory below " QUORVALE_TEST_PLACES;
        }
        place_ = name;
        // Nor may records of writes get into the user's own folder.
        state_ = name + ".state";
        setenv("XDG_STATE_HOME", state_.c_str(), 1);
    }

    void OnTestEnd(const testing::TestInfo&) override {
        std::filesystem::current_path(QUORVALE_TEST_PLACES);
        std::filesystem::remove_all(place_);
        std::filesystem::remove_all(state_);
    }

    std::filesystem::path place_;
    std::filesystem::path state_;
};

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    // Google Test takes over the listener.
    testing::UnitTest::GetInstance()->listeners().Append(new PrivateDirectory);
    return RUN_ALL_TESTS();
}
