// SPDX-License-Identifier: MIT
#include "support/ProcStat.h"

#include <pthread.h>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <fstream>
#include <stdexcept>
#include <string>

namespace vtx::e2e {

CpuTimes CpuTimes::now() {
    std::ifstream file("/proc/stat");
    std::string label;
    std::uint64_t user = 0, nice = 0, system = 0, idle = 0, ioWait = 0, irq = 0, softIrq = 0,
                  stolen = 0;
    file >> label >> user >> nice >> system >> idle >> ioWait >> irq >> softIrq >> stolen;
    if (!file || label != "cpu") throw std::runtime_error("/proc/stat is not as expected");
    return {user + nice + system + irq + softIrq + stolen, idle + ioWait};
}

void LoadRecord::look() { looks_.push_back({std::chrono::steady_clock::now(), CpuTimes::now()}); }

const LoadRecord::Look& LoadRecord::nearest(SteadyTime when) const {
    return *std::ranges::min_element(looks_, {}, [when](const Look& look) {
        return look.when < when ? when - look.when : look.when - when;
    });
}

double LoadRecord::percentBetween(SteadyTime from, SteadyTime to) const {
    const CpuTimes first = nearest(from).times, last = nearest(to).times;
    const double busy = static_cast<double>(last.busy) - static_cast<double>(first.busy);
    const double idle = static_cast<double>(last.idle) - static_cast<double>(first.idle);
    return 100.0 * busy / (busy + idle);
}

BusyCore::BusyCore()
    : thread_([](const std::stop_token& stop) {
          std::atomic<unsigned> turns = 0;
          while (!stop.stop_requested()) ++turns;
      }) {}

double BusyCore::cpuSeconds() {
    clockid_t clock{};
    timespec time{};
    if (::pthread_getcpuclockid(thread_.native_handle(), &clock) != 0 ||
        ::clock_gettime(clock, &time) != 0)
        throw std::runtime_error("no processor time of a thread");
    constexpr double nanosecond = 1e-9;
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * nanosecond;
}

}  // namespace vtx::e2e
