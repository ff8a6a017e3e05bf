// SPDX-License-Identifier: MIT
#include "ui/kit/FormGroup.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>
#include <utility>

#include "ui/kit/FormNote.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/SectionHead.h"

namespace vtx {

namespace {

constexpr int inset = metrics::formInset;
constexpr int titleHeight = 18;
constexpr int groundTop = titleHeight + metrics::formTitleGap;

/// What the rows stand on.
class Ground final : public KitWidget {
public:
    using KitWidget::KitWidget;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        const QRectF bounds = rect();
        paint::fillRounded(painter, bounds, metrics::radiusGroup, color(ColorToken::card));
        paint::outline(painter, bounds, metrics::radiusGroup, color(ColorToken::cardBorder),
                       paint::hairline(painter));
        bool isFirst = true;
        for (int i = 0; i < layout()->count(); ++i) {
            // A hidden row is an empty item.
            if (layout()->itemAt(i)->isEmpty()) continue;
            const int top = layout()->itemAt(i)->geometry().top();
            if (!std::exchange(isFirst, false))
                paint::separator(painter, 0, width(), top, color(ColorToken::separator));
        }
    }
};

}  // namespace

FormGroup::FormGroup(QWidget* parent)
    : KitWidget(parent),
      title_(new SectionHead({}, this)),
      ground_(new Ground(this)),
      rows_(new QVBoxLayout(ground_)),
      footer_(new FormNote(this)) {
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setSpacing(0);
    footer_->hide();
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

// Rows whose height is always the same do not ask for the width.
int FormGroup::groundHeight(int width) const {
    return ground_->hasHeightForWidth() ? ground_->heightForWidth(width)
                                        : ground_->sizeHint().height();
}

int FormGroup::heightForWidth(int width) const {
    const int foot = footer_->heightForWidth(width - 2 * inset);
    return groundTop + groundHeight(width) + (foot > 0 ? metrics::formFooterGap + foot : 0);
}

QSize FormGroup::sizeHint() const {
    constexpr int width = metrics::popoverWidth - 2 * metrics::contentInset;
    return {width, heightForWidth(width)};
}

void FormGroup::place() {
    constexpr int headInset = inset - metrics::sectionHeadInset;
    title_->setGeometry(headInset, 0, width() - 2 * headInset, titleHeight);
    ground_->setGeometry(0, groundTop, width(), groundHeight(width()));
    const int inner = width() - 2 * inset;
    footer_->setGeometry(inset, ground_->geometry().bottom() + 1 + metrics::formFooterGap, inner,
                         footer_->heightForWidth(inner));
}

void FormGroup::resizeEvent(QResizeEvent* event) {
    KitWidget::resizeEvent(event);
    place();
}

// A row or the footer wants another height.
bool FormGroup::event(QEvent* event) {
    if (event->type() == QEvent::LayoutRequest) {
        updateGeometry();
        place();
    }
    return KitWidget::event(event);
}

void FormGroup::setTitle(const QString& title) {
    title_->setTitle(title);
    setAccessibleName(title);
}

void FormGroup::setFooter(const QString& text, const QString& symbol) {
    footer_->setText(text, symbol);
    updateGeometry();
    place();
}

void FormGroup::addRow(QWidget* row) {
    rows_->addWidget(row);
    updateGeometry();
}

}  // namespace vtx
