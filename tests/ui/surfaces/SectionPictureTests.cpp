// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include <QScrollArea>

#include "SurfaceBench.h"
#include "pictures/BusyLaptop.h"
#include "ui/kit/Metrics.h"
#include "ui/support/FixedTheme.h"
#include "ui/surfaces/PopoverView.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

class SectionPictureTest : public testing::Test {
protected:
    SectionPictureTest() {
        bench.change([](auto& p) { p.showDiskIO = p.showFan = p.graphsDisk = true; });
        samples::busyLaptop(bench.coordinator);
        samples::memoryUsed(bench.coordinator, 0.67, MemoryStats::Pressure::warning);
    }
    /// The section as a window of `width` shows it, as high as it needs.
    std::unique_ptr<PopoverView> show(PopoverSection section, int width) {
        auto view = std::make_unique<PopoverView>(bench.coordinator,
                                                  PopoverView::SurfaceKind::dashboard, section);
        view->resize(width, metrics::popoverHeight);
        test::show(*view);
        QWidget& page = pageOf(*view);
        const int height = std::max(page.heightForWidth(width), page.sizeHint().height());
        view->resize(width, metrics::sectionBarHeight + height);
        test::settle();
        return view;
    }
    static QWidget& pageOf(PopoverView& view) { return *view.findChild<QScrollArea*>()->widget(); }

    test::SurfaceBench bench;
};

// Pictures for looking at land in the folder that VANTRIX_PICTURES names.
TEST_F(SectionPictureTest, every_section_fits_the_popover_and_any_dashboard_in_every_language) {
    const QString folder = qEnvironmentVariable("VANTRIX_PICTURES");
    for (const Language language : allLanguages) {
        Localization::shared().setPreference(language);
        for (const PopoverSection section : test::everySection) {
            for (const int width : {360, 420, 900}) {
                const auto view = show(section, width);
                EXPECT_EQ(pageOf(*view).width(), width) << describe(section).rawValue;
                EXPECT_LE(pageOf(*view).minimumSizeHint().width(), width)
                    << describe(section).rawValue << " in " << rawValue(language);
                const bool isLookedAt = language == Language::en || language == Language::de ||
                                        language == Language::ru;
                if (folder.isEmpty() || !isLookedAt) continue;
                for (const Appearance look : {Appearance::dark, Appearance::light}) {
                    const test::FixedTheme theme(look);
                    test::picture(*view, 2).save(
                        QStringLiteral("%1/%2-%3-%4-%5.png")
                            .arg(folder, qt(describe(section).rawValue))
                            .arg(width)
                            .arg(look == Appearance::dark ? "dark" : "light",
                                 qt(rawValue(language))));
                }
            }
        }
    }
}

}  // namespace
}  // namespace vtx
