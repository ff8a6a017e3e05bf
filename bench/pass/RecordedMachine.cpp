// SPDX-License-Identifier: MIT
#include "pass/RecordedMachine.h"

#include <cstdint>
#include <fstream>
#include <sstream>
#include <vector>

namespace vtx::bench {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t ticksOfASecond = 100;
constexpr std::uint64_t busyTicks = 20;

/// Writes into the file that is there, for it is kept open elsewhere.
void write(const fs::path& file, const std::string& text) { std::ofstream(file) << text; }

/// The lines of a file, each as its words.
std::vector<std::vector<std::string>> wordsOf(const fs::path& file) {
    std::vector<std::vector<std::string>> lines;
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        std::istringstream words(line);
        lines.emplace_back();
        for (std::string word; words >> word;) lines.back().push_back(word);
    }
    return lines;
}

std::string textOf(const std::vector<std::vector<std::string>>& lines) {
    std::string text;
    for (const auto& words : lines) {
        for (const auto& word : words) text.append(&word == &words.front() ? "" : " ").append(word);
        text.append("\n");
    }
    return text;
}

void add(std::string& number, std::uint64_t more) {
    number = std::to_string(std::stoull(number) + more);
}

}  // namespace

RecordedMachine::RecordedMachine(const std::string& name) {
    fs::copy(fs::path(VANTRIX_FIXTURES) / name, folder_.path(),
             fs::copy_options::recursive | fs::copy_options::copy_symlinks);
}

void RecordedMachine::goOn() const {
    const fs::path stat = folder_.path() / "proc/stat";
    auto lines = wordsOf(stat);
    for (auto& words : lines) {
        if (words.size() < 5 || !words[0].starts_with("cpu") || words[0] == "cpu") continue;
        add(words[1], busyTicks);
        add(words[4], ticksOfASecond - busyTicks);
    }
    if (!lines.empty()) write(stat, textOf(lines));
    const fs::path policies = folder_.path() / "sys/devices/system/cpu/cpufreq";
    if (!fs::exists(policies)) return;
    for (const auto& policy : fs::directory_iterator(policies)) {
        const fs::path times = policy.path() / "stats/time_in_state";
        auto clocks = wordsOf(times);
        if (clocks.empty()) continue;
        add(clocks.back().at(1), ticksOfASecond);
        write(times, textOf(clocks));
    }
}

}  // namespace vtx::bench
