// SPDX-License-Identifier: MIT
#include "platform/linux/PacedSensor.h"

#include <utility>

namespace vtx {

PacedSensor::PacedSensor(std::shared_ptr<SensorFile> file, std::shared_ptr<ReadPace> pace,
                         const Tools& tools, FirstCall firstCall)
    : file_(std::move(file)),
      pace_(std::move(pace)),
      now_(tools.now),
      patience_(tools.patience),
      firstCall_(firstCall),
      slow_(
          tools.worker, tools.clock,
          [file = file_, pace = pace_, now = tools.now] {
              const Instant before = now();
              const auto value = file->read();
              const Instant after = now();
              pace->note(ReadPace::Reader::worker, after - before, after);
              return value;
          },
          tools.patience) {}

std::optional<double> PacedSensor::value() {
    const Instant before = now_();
    const bool isFirst = !wasAsked_.exchange(true);
    if (pace_->isFast(before)) {
        std::optional<double> value;
        if (file_->tryRead(value)) {
            const Instant after = now_();
            pace_->note(ReadPace::Reader::caller, after - before, after);
            keep(value, after);
            // The next call finds something at the worker's.
            if (!pace_->isFast(after)) (void)slow_.latest();
            return value;
        }
    }
    return isFirst && isWorthWaiting() ? first() : later(before);
}

std::optional<double> PacedSensor::later(Instant now) {
    const auto answers = slow_.answers();
    const auto value = slow_.latest();
    const std::lock_guard lock(mutex_);
    if (answers != ownAnswers_) return value;
    return now - ownAt_ <= SlowRead<double>::longestAge ? own_ : std::nullopt;
}

void PacedSensor::keep(std::optional<double> value, Instant now) {
    const auto answers = slow_.answers();
    const std::lock_guard lock(mutex_);
    own_ = value;
    ownAt_ = now;
    ownAnswers_ = answers;
}

bool PacedSensor::isWorthWaiting() const {
    if (!pace_->isWorthWaiting()) return false;
    return firstCall_ == FirstCall::waits || pace_->waited() <= patience_;
}

std::optional<double> PacedSensor::first() {
    const Instant before = now_();
    const auto value = slow_.read();
    const Duration took = now_() - before;
    pace_->noteWaited(took);
    if (!value && took >= patience_) pace_->noteUnanswered();
    return value;
}

}  // namespace vtx
