// SPDX-License-Identifier: MIT
#include "support/TestBench.h"

#include <stdexcept>
#include <utility>

namespace vtx {
namespace {

constexpr std::size_t tooMany = 1'000'000;

class Limit {
public:
    explicit Limit(const char* message) : message_(message) {}
    void step() {
        if (++steps_ > tooMany) throw std::runtime_error(message_);
    }

private:
    const char* message_;
    std::size_t steps_ = 0;
};

}  // namespace

TestBench::TestBench(MacShape shape, SimulatedUserDefaults::Values settings)
    : platform(clock, std::move(shape), std::move(settings)),
      previousSink_(AppLog::install(&platform.unifiedLog)) {}

TestBench::~TestBench() { AppLog::install(previousSink_); }

void TestBench::settle() {
    Limit limit("the queues do not come to rest");
    while (main.runOne() || engine.runOne() || blocking.runOne()) limit.step();
}

void TestBench::advance(Duration span) {
    const Instant target = clock.continuous() + span;
    Limit limit("timers come due without end");
    settle();
    while (clock.fireNext(target)) {
        limit.step();
        settle();
    }
    clock.advanceTo(target);
    settle();
}

void TestBench::sleepMachine(Duration span) {
    mac.sleep();
    settle();
    clock.sleepMachine(span);
    mac.wake();
    settle();
}

}  // namespace vtx
