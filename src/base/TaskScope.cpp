// SPDX-License-Identifier: MIT
#include "base/TaskScope.h"

#include <algorithm>
#include <optional>

namespace vtx {

struct TaskScope::Core {
    struct Spawned {
        explicit Spawned(Body b) : body(std::move(b)) {}
        Body body;  // kept: the task may use what it captured
        std::stop_source source;
        std::optional<Task<void>> task;
    };
    std::vector<std::shared_ptr<Spawned>> all;

    static Task<void> supervise(std::weak_ptr<Core> core, Spawned* which, Executor& home) {
        co_await which->body(which->source.get_token());
        // The frame that runs here must not be destroyed from within itself.
        home.post([core = std::move(core), which] {
            const auto alive = core.lock();
            if (!alive) return;
            const auto at = std::ranges::find_if(
                alive->all, [which](const auto& one) { return one.get() == which; });
            if (at == alive->all.end()) return;
            const auto ended = std::move(*at);  // goes last: what it owned may use the scope
            alive->all.erase(at);
        });
    }
};

TaskScope::TaskScope(Executor& home) : home_(home), core_(std::make_shared<Core>()) {}

TaskScope::~TaskScope() {
    // Not by the destructor of the shared core: a job under way may hold that for a moment.
    auto dropped = std::move(core_->all);
    dropped.clear();
}

TaskHandle TaskScope::spawn(Body body) {
    auto spawned = std::make_shared<Core::Spawned>(std::move(body));
    TaskHandle handle(spawned->source);
    core_->all.push_back(spawned);
    home_.post([core = std::weak_ptr(core_), weak = std::weak_ptr(spawned), home = &home_] {
        const auto alive = core.lock();
        const auto one = weak.lock();
        if (!alive || !one) return;
        one->task.emplace(Core::supervise(core, one.get(), *home));
        one->task->start(*home);
    });
    return handle;
}

std::size_t TaskScope::size() const { return core_->all.size(); }

}  // namespace vtx
