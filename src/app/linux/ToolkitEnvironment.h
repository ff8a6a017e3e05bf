// SPDX-License-Identifier: MIT
#pragma once

namespace vtx {

/// Settles, before the application object is made, what the toolkit takes from the environment, so
/// that the resident program stays small. What the user has set stays as it is.
void settleToolkitEnvironment();

}  // namespace vtx
