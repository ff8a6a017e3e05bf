// SPDX-License-Identifier: MIT
#include "platform/linux/PatientCall.h"

#include <utility>

namespace vtx {
namespace {

/// Nobody waits for the very moment.
constexpr Duration tolerance = std::chrono::seconds(1);

void tellFailure(const PatientCall::Answered& answered, const char* why) {
    BusMessage nothing(nullptr, why);
    answered(nothing);
}

}  // namespace

void PatientCall::start(const BusCall& what, Answered answered) {
    const auto onAnswer = [this, answered](BusMessage& answer) {
        limit_.cancel();
        answered(answer);
    };
    limit_.cancel();
    answer_ = bus_.call(what, onAnswer);
    if (!answer_) return tellFailure(answered, "there is no bus that takes the call");
    limit_ = clock_.schedule(clock_.continuous() + patience, tolerance,
                             [this, answered = std::move(answered)] {
                                 answer_.cancel();
                                 tellFailure(answered, "there was no answer in time");
                             });
}

}  // namespace vtx
