// SPDX-License-Identifier: MIT
#include "ui/surfaces/SettingsRows.h"

#include <QHBoxLayout>

#include "ui/kit/Button.h"
#include "ui/kit/FlowLayout.h"
#include "ui/kit/FormNote.h"
#include "ui/kit/FormRow.h"
#include "ui/kit/MenuButton.h"
#include "ui/kit/SegmentedControl.h"
#include "ui/kit/Slider.h"
#include "ui/kit/Switch.h"
#include "ui/kit/TileList.h"
#include "ui/surfaces/HistoryRangePicker.h"
#include "ui/surfaces/QtText.h"
#include "ui/surfaces/SettingsColorRow.h"
#include "ui/surfaces/SettingsSink.h"

namespace vtx {
namespace {

using Show = std::function<void(const SettingsRow&)>;

/// What rows of every kind show.
void showCommon(FormRow& form, const SettingsRow& row) {
    form.setLabel(qt(row.label));
    form.setNote(qt(row.note));
    form.setTip(qt(row.tip));
    form.setVisible(row.isShown);
}

void showSlider(FormRow& form, const SettingsRow& row) {
    if (!row.slider) return;
    form.slider()->setValue(row.slider->value);
    form.setSliderValue(qt(row.slider->text));
    form.setSliderShown(row.slider->isShown);
}

void addSlider(FormRow& form, const SettingsRow& row, SettingsSink& sink) {
    if (!row.slider) return;
    auto* slider = new Slider;
    slider->setRange({row.slider->min, row.slider->max, row.slider->step});
    form.setSlider(slider, row.slider->textWidth);
    QObject::connect(
        slider, &Slider::moved, &form,
        [&sink, field = row.slider->field](double value) { sink.slide(field, value); });
}

Show fillToggle(FormRow& form, const SettingsRow& row, SettingsSink& sink) {
    auto* control = new Switch;
    form.addControl(control);
    addSlider(form, row, sink);
    QObject::connect(control, &Switch::toggled, &form,
                     [&sink, id = row.id](bool on) { sink.toggle(id, on); });
    return [&form, control](const SettingsRow& shown) {
        control->setOn(shown.isOn);
        control->setEnabled(shown.isEnabled);
        showSlider(form, shown);
    };
}

Show fillSlider(FormRow& form, const SettingsRow& row, SettingsSink& sink) {
    addSlider(form, row, sink);
    return [&form](const SettingsRow& shown) { showSlider(form, shown); };
}

Show fillMenu(FormRow& form, const SettingsRow& row, SettingsSink& sink) {
    auto* control = new MenuButton;
    form.addControl(control);
    QObject::connect(control, &MenuButton::chosen, &form,
                     [&sink, id = row.id](int choice) { sink.choose(id, choice); });
    return [control](const SettingsRow& shown) {
        std::vector<MenuChoice> choices;
        for (const ChoiceModel& choice : shown.choices)
            choices.push_back({qt(choice.label), qt(choice.symbol)});
        control->setChoices(std::move(choices));
        control->setCurrent(shown.chosen);
    };
}

Show fillSegments(FormRow& form, const SettingsRow& row, SettingsSink& sink) {
    auto* control = new SegmentedControl;
    form.addControl(control);
    QObject::connect(control, &SegmentedControl::selected, &form,
                     [&sink, id = row.id](int choice) { sink.choose(id, choice); });
    return [control](const SettingsRow& shown) {
        std::vector<QString> labels;
        for (const ChoiceModel& choice : shown.choices) labels.push_back(qt(choice.label));
        control->setSegments(std::move(labels));
        control->setCurrent(shown.chosen);
    };
}

Show fillPresets(FormRow& form, const SettingsRow& row, SettingsSink& sink) {
    auto* buttons = new QWidget;
    // Buttons bring the room between them.
    auto* flow = new FlowLayout(0, 0, buttons);
    int choice = 0;
    for (const ChoiceModel& preset : row.choices) {
        auto* button = new Button;
        button->setText(qt(preset.label));
        flow->addWidget(button);
        QObject::connect(button, &Button::pressed, &form,
                         [&sink, id = row.id, choice] { sink.choose(id, choice); });
        ++choice;
    }
    form.setWideControl(buttons);
    return [](const SettingsRow&) {};
}

Show fillButton(FormRow& form, const SettingsRow& row, SettingsSink& sink) {
    auto* ground = new QWidget;
    auto* line = new QHBoxLayout(ground);
    line->setContentsMargins(0, 0, 0, 0);
    auto* button = new Button;
    button->setSymbol(qt(row.symbol));
    line->addWidget(button);
    line->addStretch();
    form.setWideControl(ground);
    QObject::connect(button, &Button::pressed, &form, [&sink, id = row.id] { sink.press(id); });
    return [button](const SettingsRow& shown) {
        button->setText(qt(shown.label));
        button->setEnabled(shown.isEnabled);
        button->setAccessibleDescription(qt(shown.tip));
    };
}

Show fill(FormRow& form, const SettingsRow& row, SettingsSink& sink,
          MetricsCoordinator& coordinator) {
    switch (row.kind) {
        case SettingsRowKind::toggle:
            return fillToggle(form, row, sink);
        case SettingsRowKind::menu:
            return fillMenu(form, row, sink);
        case SettingsRowKind::segments:
            return fillSegments(form, row, sink);
        case SettingsRowKind::presets:
            return fillPresets(form, row, sink);
        case SettingsRowKind::color:
            return fillColorRow(form, row, sink);
        case SettingsRowKind::slider:
            return fillSlider(form, row, sink);
        case SettingsRowKind::button:
            return fillButton(form, row, sink);
        case SettingsRowKind::historyRange:
            form.setWideControl(new HistoryRangePicker(coordinator));
            break;
        case SettingsRowKind::value:
            return [&form](const SettingsRow& shown) { form.setValue(qt(shown.value)); };
        case SettingsRowKind::note:
        case SettingsRowKind::tiles:
            break;
    }
    return [](const SettingsRow&) {};
}

std::vector<TileContent> contentsOf(const std::vector<TileModel>& tiles) {
    std::vector<TileContent> contents;
    for (const TileModel& tile : tiles) {
        const QString spoken = qt(tile.spoken);
        contents.push_back({qt(tile.id), qt(tile.label), spoken, tile.isOn,
                            qt(moveUpName) + ", " + spoken, qt(moveDownName) + ", " + spoken});
    }
    return contents;
}

SettingsRowView makeTiles(const SettingsRow& row, SettingsSink& sink) {
    auto* list = new TileList;
    QObject::connect(list, &TileList::toggled, list,
                     [&sink](const QString& id, bool on) { sink.toggle(id.toStdString(), on); });
    QObject::connect(list, &TileList::stepped, list, [&sink](const QString& id, TileStep step) {
        sink.moveTile(id.toStdString(),
                      step == TileStep::up ? settings::TileMove::up : settings::TileMove::down);
    });
    QObject::connect(list, &TileList::entered, list,
                     [&sink](const QString& dragged, const QString& destination) {
                         sink.enterTile(dragged.toStdString(), destination.toStdString());
                     });
    const Show show = [list](const SettingsRow& shown) { list->setTiles(contentsOf(shown.tiles)); };
    return {row.id, list, show};
}

}  // namespace

SettingsRowView makeSettingsRow(const SettingsRow& row, SettingsSink& sink,
                                MetricsCoordinator& coordinator) {
    if (row.kind == SettingsRowKind::tiles) return makeTiles(row, sink);
    auto* form = new FormRow;
    // Buttons wear the label themselves.
    const bool isLabelled = row.kind != SettingsRowKind::button;
    const Show show = [form, isLabelled,
                       own = fill(*form, row, sink, coordinator)](const SettingsRow& shown) {
        SettingsRow common = shown;
        if (!isLabelled) common.label.clear();
        showCommon(*form, common);
        own(shown);
    };
    return {row.id, form, show};
}

}  // namespace vtx
