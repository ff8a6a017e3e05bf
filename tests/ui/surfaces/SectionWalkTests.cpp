// SPDX-License-Identifier: MIT
// Every section as those meet it who use the keyboard or a screen reader.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QTimer>
#include <functional>
#include <span>
#include <vector>

#include "SurfaceBench.h"
#include "pictures/BusyLaptop.h"
#include "pictures/PictureStage.h"
#include "ui/kit/ScrollArea.h"
#include "ui/kit/SectionBar.h"
#include "ui/surfaces/PopoverView.h"

namespace vtx {
namespace {

using Element = QAccessibleInterface;

/// Every element that can be met from `element` on.
void walk(Element* element, const std::function<void(Element&)>& meet) {
    if (!element || element->state().invisible) return;
    meet(*element);
    for (int i = 0; i < element->childCount(); ++i) walk(element->child(i), meet);
}

std::unique_ptr<PopoverView> shown(MetricsCoordinator& coordinator, PopoverSection section) {
    auto view = std::make_unique<PopoverView>(coordinator, PopoverView::SurfaceKind::popover,
                                              section, [](PopoverSection) {});
    view->resize(360, 540);
    test::show(*view);
    return view;
}

/// All that is said of a section, a line for each element.
QStringList saidOf(PopoverView& view) {
    QStringList lines;
    walk(QAccessible::queryAccessibleInterface(&view), [&lines](Element& one) {
        const QString value = one.text(QAccessible::Value);
        lines << one.text(QAccessible::Name) + ": " +
                     (value.isEmpty() ? one.text(QAccessible::Description) : value);
    });
    return lines;
}

/// Those that show readings: the processes and the settings have walks of their own.
std::vector<PopoverSection> metricSections() {
    std::vector<PopoverSection> sections(std::begin(test::everySection),
                                         std::end(test::everySection));
    std::erase(sections, PopoverSection::processes);
    std::erase(sections, PopoverSection::settings);
    return sections;
}

class SectionWalkTest : public testing::Test {
protected:
    SectionWalkTest() {
        stage.change([](auto& p) { p.showDiskIO = p.showFan = p.graphsDisk = true; });
    }
    PictureStage stage{Language::en};
};

TEST_F(SectionWalkTest, every_bar_tile_and_chart_has_a_name_and_a_value) {
    samples::busyLaptop(stage.coordinator());
    for (const PopoverSection section : metricSections()) {
        SCOPED_TRACE(describe(section).rawValue);
        int told = 0;
        const auto view = shown(stage.coordinator(), section);
        walk(QAccessible::queryAccessibleInterface(view.get()), [&told](Element& one) {
            const auto role = one.role();
            const bool tells = role == QAccessible::Chart || role == QAccessible::ProgressBar ||
                               role == QAccessible::ListItem || role == QAccessible::PageTab ||
                               role == QAccessible::RadioButton;
            if (!tells && role != QAccessible::Graphic) return;
            ++told;
            const QString name = one.text(QAccessible::Name);
            EXPECT_FALSE(name.isEmpty()) << "an element of role " << role << " has no name";
            const bool hasValue = role == QAccessible::ProgressBar || role == QAccessible::ListItem;
            const bool isChart = role == QAccessible::Chart;
            EXPECT_TRUE(!hasValue || !one.text(QAccessible::Value).isEmpty()) << qPrintable(name);
            EXPECT_TRUE(!isChart || !one.text(QAccessible::Description).isEmpty())
                << qPrintable(name);
        });
        EXPECT_GT(told, static_cast<int>(metricSections().size()));
    }
}

TEST_F(SectionWalkTest, on_a_living_mac_no_section_lacks_a_figure) {
    stage.run(std::chrono::minutes(2));
    for (const PopoverSection section : metricSections()) {
        const auto view = shown(stage.coordinator(), section);
        const QStringList said = saidOf(*view);
        EXPECT_TRUE(said.filter(QString::fromUtf8("—")).isEmpty())
            << describe(section).rawValue << " says:\n"
            << qPrintable(said.join('\n'));
        EXPECT_TRUE(said.filter(QStringLiteral("Collecting")).isEmpty())
            << describe(section).rawValue;
    }
}

TEST_F(SectionWalkTest, digits_and_arrows_lead_through_every_section) {
    const auto view = shown(stage.coordinator(), PopoverSection::overview);
    auto& bar = *view->findChild<SectionBar*>();
    int digit = Qt::Key_1;
    for (const PopoverSection section : std::span(test::everySection).first<9>()) {
        test::press(bar, digit++);
        EXPECT_EQ(view->selectedSection(), section) << describe(section).rawValue;
    }
    test::press(bar, Qt::Key_Home);
    for (const PopoverSection section : test::everySection) {
        test::press(bar, Qt::Key_Space);
        EXPECT_EQ(view->selectedSection(), section) << describe(section).rawValue;
        test::press(bar, Qt::Key_Right);
    }
}

TEST_F(SectionWalkTest, tab_reaches_every_control_from_the_top_to_the_bottom) {
    samples::busyLaptop(stage.coordinator());
    for (const PopoverSection section : test::everySection) {
        SCOPED_TRACE(describe(section).rawValue);
        const auto view = shown(stage.coordinator(), section);
        QSet<QWidget*> controls;
        for (QWidget* one : view->findChildren<QWidget*>())
            if ((one->focusPolicy() & Qt::TabFocus) && one->isVisible() && one->isEnabled())
                controls << one;
        auto* const bar = view->findChild<SectionBar*>();
        bar->setFocus(Qt::TabFocusReason);
        QWidget* reached = bar;
        for (int top = -1; controls.remove(reached); reached = QApplication::focusWidget()) {
            // A long page scrolls to what is reached: its places count from its own top.
            const QWidget* const page = view->findChild<ScrollArea*>()->widget();
            const int y = page->isAncestorOf(reached)
                              ? bar->height() + reached->mapTo(page, QPoint()).y()
                              : reached->mapTo(view.get(), QPoint()).y();
            EXPECT_GT(y + reached->height(), top)
                << qPrintable(reached->accessibleName());  // beside the one before, or below it
            top = y;
            test::press(*reached, Qt::Key_Tab);
        }
        EXPECT_TRUE(controls.isEmpty()) << controls.size() << " are not reached";
        EXPECT_EQ(reached, bar) << "the way does not close";
    }
}

TEST_F(SectionWalkTest, a_tip_on_the_bar_is_in_the_language_in_force) {
    const auto view = shown(stage.coordinator(), PopoverSection::overview);
    auto& bar = *view->findChild<SectionBar*>();
    stage.change([](auto& p) { p.languageCode = rawValue(Language::de); });
    test::hover(bar, bar.partRect(0).center());
    ASSERT_TRUE(bar.hoverTip().isPending());
    QMetaObject::invokeMethod(&bar.hoverTip().timer(), "timeout");
    const auto tips = bar.findChildren<Tooltip*>();
    ASSERT_FALSE(tips.isEmpty());
    EXPECT_EQ(tips.front()->accessibleName(), QString::fromUtf8("Übersicht"));
}

}  // namespace
}  // namespace vtx
