// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

class QWidget;

namespace vtx {

class PictureStage;

/// The page of processes in its states, on the ground of a popover.
namespace processPictures {

using Made = std::unique_ptr<QWidget>;

Made beforeTheFirstList(PictureStage& stage);
Made three(PictureStage& stage);
Made thousand(PictureStage& stage);
Made withoutMatch(PictureStage& stage);
Made withHogs(PictureStage& stage);
Made withoutHogs(PictureStage& stage);
Made confirmation(PictureStage& stage);
Made refused(PictureStage& stage);
Made menu(PictureStage& stage);

/// The same in the popover and in the dashboard.
Made inPopover(PictureStage& stage);
Made inDashboard(PictureStage& stage);

}  // namespace processPictures

}  // namespace vtx
