// SPDX-License-Identifier: MIT
#include "ui/surfaces/LanguagePickerView.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "language/Localization.h"
#include "ui/kit/Button.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Type.h"
#include "ui/kit/WrappedText.h"
#include "ui/models/LanguagePickerModel.h"
#include "ui/surfaces/LanguageCards.h"
#include "ui/surfaces/QtText.h"

namespace vtx {
namespace {

constexpr int reach = metrics::focusReach;
constexpr TextRole subtitleRole = TextRole::body;
constexpr TextRole hintRole = TextRole::caption;

std::optional<int> placeOf(Language language) {
    const auto found = std::ranges::find(offeredLanguages, language);
    if (found == offeredLanguages.end()) return std::nullopt;
    return static_cast<int>(found - offeredLanguages.begin());
}

}  // namespace

LanguagePickerView::LanguagePickerView(Language initial, QWidget* parent)
    : Surface(parent),
      selection_(initial),
      cards_(new LanguageCards(this)),
      button_(new Button(ButtonKind::primary, this)) {
    setFocusProxy(cards_);
    connect(cards_, &LanguageCards::selected, this, [this](int index) {
        selection_ = offeredLanguages.at(static_cast<std::size_t>(index));
    });
    connect(button_, &Button::pressed, this, &LanguagePickerView::confirm);
    rebuild();
    cards_->setSelection(placeOf(initial));
}

void LanguagePickerView::rebuild() {
    const LanguagePickerModel model = describeLanguagePicker(Localization::shared());
    title_ = qt(model.title);
    subtitle_ = qt(model.subtitle);
    hint_ = qt(model.changeHint);
    button_->setText(qt(model.confirm));
    std::vector<LanguageCardContent> cards;
    for (const LanguageCard& card : model.cards)
        cards.push_back({qt(card.nativeName), qt(card.label)});
    cards_->setCards(std::move(cards));
    cards_->setAccessibleName(subtitle_);
    setAccessibleName(title_);
    layOut();
    update();
}

void LanguagePickerView::layOut() {
    constexpr int left = metrics::pickerPadding, room = metrics::pickerWidth - 2 * left;
    int y = metrics::pickerPadding;
    const auto take = [&y](int height, int gap) {
        const QRect taken(left, y, room, height);
        y += height + gap;
        return taken;
    };
    symbolRect_ = take(metrics::pickerSymbol, metrics::pickerSymbolGap);
    titleRect_ = take(lineHeight(TextRole::clock), metrics::pickerTitleGap);
    subtitleRect_ =
        take(wrapped::height(subtitle_, subtitleRole, room), metrics::pickerCardsGap - reach);
    cards_->setGeometry(take(cards_->sizeHint().height(), metrics::pickerFooterGap - reach)
                            .adjusted(-reach, 0, reach, 0));

    const int button = std::max(metrics::pickerButtonLabel + 2 * metrics::buttonPadding,
                                button_->sizeHint().width() - 2 * reach);
    const int hintRoom = room - button - metrics::pickerPadding;
    const int hint = wrapped::height(hint_, hintRole, hintRoom);
    const QRect footer = take(std::max(hint, metrics::dialogButtonHeight), metrics::pickerPadding);
    hintRect_ = QRect(left, footer.top() + (footer.height() - hint) / 2, hintRoom, hint);
    QRect shape(0, 0, button, metrics::dialogButtonHeight);
    shape.moveTo(left + room - button, footer.top() + (footer.height() - shape.height()) / 2);
    button_->setGeometry(mirrored(shape.adjusted(-reach, -reach, reach, reach)));
    setFixedSize(metrics::pickerWidth, y);
}

AccessiblePart LanguagePickerView::part(int index) const {
    return {.name = index == 0 ? subtitle_ : hint_, .value = {}};
}

QRect LanguagePickerView::partRect(int index) const {
    return index == 0 ? subtitleRect_ : mirrored(hintRect_);
}

void LanguagePickerView::paintEvent(QPaintEvent* event) {
    Surface::paintEvent(event);
    QPainter painter(this);
    symbols::draw(painter, symbolRect_, "globe", metrics::pickerSymbol, color(ColorToken::accent));
    painter.setPen(color(ColorToken::text1));
    drawText(painter, titleRect_, title_, TextRole::clock, Qt::AlignCenter);
    painter.setPen(color(ColorToken::text2));
    wrapped::draw(painter, subtitleRect_, subtitle_, subtitleRole, Qt::AlignHCenter);
    wrapped::draw(painter, mirrored(hintRect_), hint_, hintRole, atStart());
}

void LanguagePickerView::keyPressEvent(QKeyEvent* event) {
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && !event->isAutoRepeat())
        confirm();
    else
        Surface::keyPressEvent(event);
}

void LanguagePickerView::confirm() {
    // A copy: it may end the view.
    if (const auto tell = onConfirm) tell(selection_);
}

void LanguagePickerView::showEvent(QShowEvent* event) {
    Surface::showEvent(event);
    language_ = Localization::shared().effective.subscribe([this](const auto&) { rebuild(); });
}

void LanguagePickerView::hideEvent(QHideEvent* event) {
    language_.cancel();
    Surface::hideEvent(event);
}

void LanguagePickerView::closeEvent(QCloseEvent* event) {
    event->setAccepted(!event->spontaneous());
}

}  // namespace vtx
