// SPDX-License-Identifier: MIT
#include "ui/surfaces/ToolkitTexts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

#include "language/Localization.h"
#include "ui/surfaces/QtText.h"

namespace vtx {

ToolkitTexts::ToolkitTexts() {
    language_ =
        Localization::shared().effective.subscribe([this](Language language) { speak(language); });
}

ToolkitTexts::~ToolkitTexts() = default;

void ToolkitTexts::speak(Language language) {
    // It goes from the application by itself.
    translator_.reset();
    if (language == Language::en) return;  // as it is written
    auto texts = std::make_unique<QTranslator>();
    const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
    if (!texts->load(QLocale(qt(rawValue(language))), "qtbase", "_", folder)) return;
    translator_ = std::move(texts);
    QCoreApplication::installTranslator(translator_.get());
}

}  // namespace vtx
