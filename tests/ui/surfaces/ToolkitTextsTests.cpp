// SPDX-License-Identifier: MIT
#include "ui/surfaces/ToolkitTexts.h"

#include <gtest/gtest.h>

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QPushButton>

#include "SurfaceBench.h"

namespace vtx {
namespace {

class ToolkitTextsTest : public testing::Test {
protected:
    void speak(Language language) {
        bench.change([language](auto& p) { p.languageCode = rawValue(language); });
    }
    /// What the way out of a dialog is called.
    [[nodiscard]] static QString wayOut() {
        const QColorDialog dialog;
        auto* buttons = dialog.findChild<QDialogButtonBox*>();
        return buttons->button(QDialogButtonBox::Cancel)->text().remove('&');
    }

    test::SurfaceBench bench;
};

TEST_F(ToolkitTextsTest, dialogs_follow_the_language_in_force) {
    const ToolkitTexts texts;
    EXPECT_EQ(wayOut(), "Cancel");
    speak(Language::de);
    EXPECT_EQ(wayOut(), "Abbrechen");
    speak(Language::ja);
    EXPECT_EQ(wayOut(), QString::fromUtf8("キャンセル"));
    speak(Language::en);
    EXPECT_EQ(wayOut(), "Cancel");
}

TEST_F(ToolkitTextsTest, every_language_is_installed) {
    const ToolkitTexts texts;
    for (const Language language : allLanguages) {
        if (language == Language::automatic || language == Language::en) continue;
        speak(language);
        EXPECT_NE(wayOut(), "Cancel") << rawValue(language);
    }
}

TEST_F(ToolkitTextsTest, they_end_with_it) {
    {
        const ToolkitTexts texts;
        speak(Language::de);
    }
    EXPECT_EQ(wayOut(), "Cancel");
}

}  // namespace
}  // namespace vtx
