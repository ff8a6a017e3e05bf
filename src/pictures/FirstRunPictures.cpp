// SPDX-License-Identifier: MIT
#include "pictures/FirstRunPictures.h"

#include "pictures/PictureStage.h"
#include "ui/surfaces/LanguagePickerView.h"

namespace vtx::firstRunPictures {
namespace {

Language languageOf(PictureStage& stage) {
    return languageFromStoredCode(stage.coordinator().preferences->languageCode);
}

}  // namespace

Made asked(PictureStage& stage) { return std::make_unique<LanguagePickerView>(languageOf(stage)); }

}  // namespace vtx::firstRunPictures
