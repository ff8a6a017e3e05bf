// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "ui/models/SettingsModel.h"

namespace vtx {

class FormRow;
class SettingsSink;

/// Fills the row with a colour well and, where there is an override, the button that takes it back;
/// gives what shows another state of it. The sink must outlive the row.
[[nodiscard]] std::function<void(const SettingsRow&)> fillColorRow(FormRow& form,
                                                                   const SettingsRow& row,
                                                                   SettingsSink& sink);

}  // namespace vtx
