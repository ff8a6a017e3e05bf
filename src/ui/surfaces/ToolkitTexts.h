// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "base/Subscription.h"
#include "language/Language.h"

class QTranslator;

namespace vtx {

/// Keeps what the toolkit's own dialogs say, those for colours and for files, in the language in
/// force, as far as its translations are installed; otherwise they are in English. Main executor,
/// after the application object was made.
class ToolkitTexts {
public:
    ToolkitTexts();
    ~ToolkitTexts();
    ToolkitTexts(const ToolkitTexts&) = delete;
    ToolkitTexts& operator=(const ToolkitTexts&) = delete;

private:
    void speak(Language language);

    std::unique_ptr<QTranslator> translator_;
    Subscription language_;
};

}  // namespace vtx
