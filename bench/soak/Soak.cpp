// SPDX-License-Identifier: MIT
#include "Soak.h"

#include <fmt/format.h>

#include <stdexcept>
#include <thread>

#include "EveryTile.h"
#include "UnevenLoad.h"

namespace vtx::bench {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

constexpr auto startMayTake = 20s;
constexpr auto betweenSamples = 4s;
/// Of use, before all is closed for a while.
constexpr auto useOfOneTurn = 50s;
constexpr auto restOfOneTurn = 32s;
/// What a closed surface used is kept for a while, should it be opened again.
constexpr auto untilCalm = 20s;
constexpr auto watchOfStrip = 20s;
constexpr auto glance = 200ms;

Program::Environment environmentOf(const SoakOptions& options, const fs::path& home) {
    Program::Environment environment{{"HOME", home},
                                     {"XDG_CONFIG_HOME", home / "config"},
                                     {"XDG_CACHE_HOME", home / "cache"},
                                     {"XDG_DATA_HOME", home / "data"},
                                     {"XDG_RUNTIME_DIR", home}};
    if (options.withAccessibility) environment["QT_LINUX_ACCESSIBILITY_ALWAYS_ON"] = "1";
    return environment;
}

fs::path programOf(const SoakOptions& options) {
    return options.program.value_or(fs::canonical("/proc/self/exe").parent_path() / "vantrix");
}

}  // namespace

Soak::Soak(const SoakOptions& options)
    : options_(options), program_({programOf(options)}, [&] {
          storeEveryTile(home_.path() / "config/vantrix");
          return environmentOf(options, home_.path());
      }()) {
    report_.seed = options.seed;
}

void Soak::walk() {
    walk_.emplace(program_.process(), options_.seed,
                  [this](std::chrono::milliseconds span) { pause(span); });
    begun_ = nextSample_ = Clock::now();
    while (!walk_->stripPicture()) {
        if (Clock::now() > begun_ + startMayTake) throw std::runtime_error("no strip was shown");
        std::this_thread::sleep_for(glance);
    }
    try {
        walkThrough();
    } catch (const std::exception&) {
        noteWalk();
        throw;
    }
    noteWalk();
    watchStrip();
    end();
}

void Soak::noteWalk() {
    report_.length = Clock::now() - begun_;
    report_.steps = walk_->steps();
    report_.repeats = walk_->repeats();
    report_.uses = walk_->uses();
}

void Soak::walkThrough() {
    const auto end = begun_ + std::chrono::duration<double>(options_.minutes * 60);
    rest();
    while (Clock::now() < end) {
        const auto turn = Clock::now() + useOfOneTurn;
        while (Clock::now() < turn) {
            walk_->step();
        }
        walk_->closeAll();
        rest();
    }
}

void Soak::rest() {
    closedSince_ = Clock::now();
    pause(restOfOneTurn);
    closedSince_.reset();
}

void Soak::pause(std::chrono::milliseconds span) {
    const auto end = Clock::now() + span;
    while (nextSample_ <= end) {
        std::this_thread::sleep_until(nextSample_);
        sample();
        nextSample_ = std::max(nextSample_ + betweenSamples, Clock::now());
    }
    std::this_thread::sleep_until(end);
}

void Soak::sample() {
    if (!program_.isRunning()) throw ProgramEnded();
    const auto now = Clock::now();
    report_.samples.push_back({now - begun_, closedSince_ && now - *closedSince_ >= untilCalm,
                               readHolding(program_.process()), serverHolding()});
}

std::optional<Holding> Soak::serverHolding() const {
    const auto server = walk_->server();
    if (!server) return std::nullopt;
    try {
        return readHolding(*server);
    } catch (const std::runtime_error&) {
        return std::nullopt;  // another user's, who does not tell
    }
}

void Soak::watchStrip() {
    const UnevenLoad load;
    const auto begun = Clock::now();
    auto shown = walk_->stripPicture();
    while (Clock::now() < begun + watchOfStrip) {
        std::this_thread::sleep_for(glance);
        const auto now = walk_->stripPicture();
        report_.stripChanges += now && now != shown;
        shown = now;
    }
    report_.stripWatched = Clock::now() - begun;
}

void Soak::end() { report_.hasEndedInOrder = program_.isRunning() && program_.end() == 0; }

}  // namespace vtx::bench
