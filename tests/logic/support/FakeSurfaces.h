// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "ui/controller/SurfaceFactory.h"

namespace vtx {

/// Surfaces that are only told, and that a test plays the user of.
struct FakeStatusItem final : StatusItemSurface {
    bool isThere = true;
    double contentWidth = 100.0;
    std::vector<double> lengths;
    std::vector<MenuItem> menu;

    bool hasButton() const override { return isThere; }
    double intrinsicContentWidth() override { return contentWidth; }
    void setLength(double length) override { lengths.push_back(length); }
    void popUpMenu(std::vector<MenuItem> items) override { menu = std::move(items); }

    void choose(const std::string& title) {
        std::ranges::find(menu, title, &MenuItem::title)->action();
    }
};

struct FakePopover final : PopoverSurface {
    bool shown = false;
    std::function<void(PopoverSection)> detach;

    bool isShown() const override { return shown; }
    void show() override {
        if (!std::exchange(shown, true) && onShow) onShow();
    }
    void close() override {
        shown = false;
        if (onClose) onClose();
    }
};

struct FakeDashboard final : DashboardSurface {
    std::vector<PopoverSection> shown;

    void show(PopoverSection section) override {
        shown.push_back(section);
        if (onVisibilityChange) onVisibilityChange(true);
    }
    void userCloses() { onVisibilityChange(false); }
};

struct FakeMiniWidget final : MiniWidgetSurface {
    std::vector<std::string> did;

    void show() override { did.emplace_back("show"); }
    void close() override { did.emplace_back("close"); }
};

struct FakeLanguagePicker final : LanguagePickerSurface {
    std::vector<Language> presented;
    std::function<void(Language)> confirm;

    void present(Language initial, std::function<void(Language)> onConfirm) override {
        presented.push_back(initial);
        confirm = std::move(onConfirm);
    }
};

struct FakeSurfaces final : SurfaceFactory {
    FakeStatusItem* item = nullptr;
    FakePopover* popover = nullptr;
    FakeDashboard* dashboard = nullptr;
    FakeMiniWidget* miniWidget = nullptr;
    FakeLanguagePicker* languagePicker = nullptr;
    bool givesButton = true;
    std::vector<std::string> did;
    /// Called when the first of them is wanted.
    std::function<void()> atFirst;

    std::unique_ptr<LanguagePickerSurface> makeLanguagePicker() override {
        if (atFirst) atFirst();
        auto made = std::make_unique<FakeLanguagePicker>();
        languagePicker = made.get();
        return made;
    }
    std::unique_ptr<DashboardSurface> makeDashboard(MetricsCoordinator&) override {
        auto made = std::make_unique<FakeDashboard>();
        dashboard = made.get();
        return made;
    }
    std::unique_ptr<MiniWidgetSurface> makeMiniWidget(MetricsCoordinator&) override {
        auto made = std::make_unique<FakeMiniWidget>();
        miniWidget = made.get();
        return made;
    }
    std::unique_ptr<StatusItemSurface> makeStatusItem(MetricsCoordinator&) override {
        auto made = std::make_unique<FakeStatusItem>();
        made->isThere = givesButton;
        item = made.get();
        return made;
    }
    std::unique_ptr<PopoverSurface> makePopover(
        MetricsCoordinator&, StatusItemSurface&,
        std::function<void(PopoverSection)> onDetachRequested) override {
        auto made = std::make_unique<FakePopover>();
        made->detach = std::move(onDetachRequested);
        popover = made.get();
        return made;
    }
    void becomeAccessory() override { did.emplace_back("accessory"); }
    void activate() override { did.emplace_back("activate"); }
    void showAboutPanel() override { did.emplace_back("about"); }
    void terminate() override { did.emplace_back("terminate"); }
};

}  // namespace vtx
