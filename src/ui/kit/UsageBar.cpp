// SPDX-License-Identifier: MIT
#include "ui/kit/UsageBar.h"

#include <QPainter>

#include "ui/kit/Bars.h"
#include "ui/kit/Metrics.h"

namespace vtx {

UsageBar::UsageBar(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

void UsageBar::setContent(UsageBarContent content) {
    content.value = bars::fraction(content.value);
    if (content_ == content) return;
    std::swap(content_, content);
    if (content.size != content_.size) updateGeometry();
    const qreal scale = devicePixelRatioF();
    const bool longer =
        bars::filled(content.value, width(), scale) != bars::filled(content_.value, width(), scale);
    const bool looksOther = !(content.tint == content_.tint) || content.track != content_.track ||
                            content.size != content_.size;
    if (longer || looksOther) update();
    if (content.spoken != content_.spoken) accessibility::announceValue(*this, 0);
}

int UsageBar::thickness() const {
    switch (content_.size) {
        case BarSize::thin:
            return metrics::barThin;
        case BarSize::regular:
            return metrics::barRegular;
        case BarSize::thick:
            return metrics::barThick;
    }
    return metrics::barRegular;
}

QSize UsageBar::sizeHint() const { return {metrics::cardContentWidth, thickness()}; }

QSize UsageBar::minimumSizeHint() const { return {2 * thickness(), thickness()}; }

AccessiblePart UsageBar::part(int) const {
    return {.name = content_.label, .value = content_.spoken, .role = QAccessible::ProgressBar};
}

void UsageBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const bool isTinted = content_.track == BarTrack::tinted;
    const QColor track =
        isTinted ? content_.tint.resolved(metrics::barTrackOpacity) : color(ColorToken::track);
    const qreal top = (height() - thickness()) / 2.0;
    bars::draw(painter, QRectF(0, top, width(), thickness()), content_.value,
               {track, content_.tint.resolved()}, layoutDirection());
}

}  // namespace vtx
