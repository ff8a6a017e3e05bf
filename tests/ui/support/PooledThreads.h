// SPDX-License-Identifier: MIT
#pragma once

#include <QThreadPool>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>

namespace vtx::test {

inline int pooledThreads() {
    return static_cast<int>(std::ranges::count_if(
        std::filesystem::directory_iterator("/proc/self/task"), [](const auto& task) {
            std::string name;
            std::ifstream file(task.path() / "comm");
            std::getline(file, name);
            return name.starts_with("Thread (pooled)");
        }));
}

/// How many threads of the toolkit's pool it takes to do `what`. They stay for half a minute after
/// their work, so that none is missed.
template <class F>
int pooledThreadsFor(F&& what) {
    QThreadPool::globalInstance()->waitForDone();
    while (pooledThreads() > 0) std::this_thread::yield();  // the system ends them a little later
    what();
    return pooledThreads();
}

}  // namespace vtx::test
