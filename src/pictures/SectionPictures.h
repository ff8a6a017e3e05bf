// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>
#include <memory>

#include "ui/models/PopoverSection.h"

namespace vtx {

class PictureStage;

/// The sections in popover and dashboard, and the states that differ in looks.
namespace sectionPictures {

using Made = std::unique_ptr<QWidget>;

/// The popover with its frame, and the dashboard, on the stage as it stands.
[[nodiscard]] Made popoverAt(PictureStage& stage, PopoverSection section);
[[nodiscard]] Made dashboardAt(PictureStage& stage, PopoverSection section);

/// Brings the stage into a state. Every section is offered in each of them.
using State = void(PictureStage& stage);

/// Before the first reading.
void unread(PictureStage& stage);
/// A laptop at work.
void usual(PictureStage& stage);
/// The same with bars for its charts, or with none.
void bars(PictureStage& stage);
void withoutCharts(PictureStage& stage);
/// Memory runs short.
void warning(PictureStage& stage);
void critical(PictureStage& stage);
/// Everything at its full load.
void fullLoad(PictureStage& stage);
/// The longest names and the largest figures.
void extremes(PictureStage& stage);
void charging(PictureStage& stage);
void nearlyEmpty(PictureStage& stage);
/// What the machine lacks, or does not tell.
void withoutGPU(PictureStage& stage);
void withoutNetwork(PictureStage& stage);
void desktop(PictureStage& stage);
void unknownMachine(PictureStage& stage);

template <PopoverSection section, State bring>
[[nodiscard]] Made popover(PictureStage& stage) {
    bring(stage);
    return popoverAt(stage, section);
}

template <PopoverSection section>
[[nodiscard]] Made dashboard(PictureStage& stage) {
    usual(stage);
    return dashboardAt(stage, section);
}

}  // namespace sectionPictures
}  // namespace vtx
