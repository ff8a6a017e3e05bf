// SPDX-License-Identifier: MIT
// What each fuzz target expects of every input, held against the few that are kept in `corpus`.
#include <gtest/gtest.h>
#include <sanitizer/common_interface_defs.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <memory>
#include <source_location>
#include <string>
#include <string_view>
#include <vector>

#include "Replay.h"

/// An abort is told of like whatever else ends the program: with the input that led there.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options() { return "handle_abort=1:handle_sigill=1"; }
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace vtx::fuzz {

std::map<std::string, Target>& targets() {
    static std::map<std::string, Target> all;
    return all;
}

namespace {

namespace fs = std::filesystem;

/// An expectation that does not hold.
struct Broken {
    std::source_location where;
};

/// What the target at work was handed.
std::string& inputAtHand() {
    static std::string name;
    return name;
}

void tellInputAtHand() {
    if (!inputAtHand().empty()) std::cerr << "The input was " << inputAtHand() << '\n';
}

const fs::path& corpus() {
    static const fs::path folder = VANTRIX_FUZZ_CORPUS;
    return folder;
}

std::string contentsOf(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// In memory of its own, as the fuzzer hands it out: a byte too many that is read is noticed.
void hand(Target target, std::string_view input, const std::string& name) {
    const auto bytes = std::make_unique<std::uint8_t[]>(input.size());
    std::ranges::copy(input, bytes.get());
    inputAtHand() = name;
    SCOPED_TRACE("the input is " + name);
    try {
        target(bytes.get(), input.size());
    } catch (const Broken& expectation) {
        ADD_FAILURE_AT(expectation.where.file_name(), static_cast<int>(expectation.where.line()))
            << "what the target expects of every input does not hold";
    } catch (const std::exception& error) {
        ADD_FAILURE() << "it threw: " << error.what();
    }
    inputAtHand().clear();
}

class FuzzTarget : public testing::TestWithParam<std::string> {
protected:
    void SetUp() override { __sanitizer_set_death_callback(tellInputAtHand); }

    /// The first that fails is the last: what a target keeps from input to input may be half done.
    void hand(std::string_view input, const std::string& name) const {
        if (!HasFailure()) fuzz::hand(targets().at(GetParam()), input, name);
    }
    static std::vector<fs::path> keptInputs() {
        const fs::path folder = corpus() / GetParam();
        if (!fs::is_directory(folder)) return {};
        std::vector<fs::path> files;
        for (const auto& entry : fs::directory_iterator(folder)) files.push_back(entry.path());
        std::ranges::sort(files);
        return files;
    }
};

TEST_P(FuzzTarget, has_kept_inputs_and_expects_of_each_what_holds) {
    const auto files = keptInputs();
    ASSERT_FALSE(files.empty()) << "there is nothing in " << corpus() / GetParam();
    for (const auto& file : files) hand(contentsOf(file), file.string());
}

TEST_P(FuzzTarget, expects_what_holds_of_an_empty_input_and_of_each_kept_one_cut_short) {
    hand("", "empty");
    for (const auto& file : keptInputs()) {
        const auto whole = contentsOf(file);
        for (const std::size_t eighths : {1U, 2U, 4U, 6U, 7U}) {
            const auto cut = std::string_view(whole).substr(0, whole.size() * eighths / 8);
            hand(cut, "the first " + std::to_string(cut.size()) + " bytes of " + file.string());
        }
    }
}

std::vector<std::string> names() {
    std::vector<std::string> all;
    for (const auto& [name, target] : targets()) all.push_back(name);
    return all;
}

INSTANTIATE_TEST_SUITE_P(Corpus, FuzzTarget, testing::ValuesIn(names()), [](const auto& target) {
    std::string name = target.param;
    std::ranges::replace(name, '-', '_');
    return name;
});

TEST(FuzzCorpus, every_folder_is_that_of_a_target) {
    for (const auto& entry : fs::directory_iterator(corpus()))
        EXPECT_TRUE(targets().contains(entry.path().filename().string())) << entry.path();
}

}  // namespace

void breakAt(const std::source_location& where) { throw Broken{where}; }

}  // namespace vtx::fuzz
