// SPDX-License-Identifier: MIT
#include "ui/kit/TileList.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>
#include <utility>

#include "ui/kit/AccessibleReorder.h"
#include "ui/kit/Button.h"
#include "ui/kit/LiftedTile.h"
#include "ui/kit/Metrics.h"
#include "ui/kit/Paint.h"
#include "ui/kit/Switch.h"

namespace vtx {

namespace {

constexpr int rowHeight = metrics::tileRowHeight;
/// So near an edge of the page it scrolls, with each frame by so much.
constexpr int edgeReach = rowHeight / 2;
constexpr int mostStep = 6;
constexpr int frameMs = 16;

/// The page that it is on; null where there is none.
QAbstractScrollArea* pageOf(const QWidget& widget) {
    for (QWidget* up = widget.parentWidget(); up; up = up->parentWidget())
        if (auto* page = qobject_cast<QAbstractScrollArea*>(up)) return page;
    return nullptr;
}

}  // namespace

TileList::TileList(QWidget* parent) : KitWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    // To notice that the button was let go where nobody told of it.
    setMouseTracking(true);
    scrolling_.setInterval(frameMs);
    connect(&scrolling_, &QTimer::timeout, this, &TileList::scroll);
    slide_.setStartValue(0.0);
    slide_.setEndValue(1.0);
    slide_.setDuration(metrics::tileReorderMs);
    slide_.setEasingCurve(QEasingCurve::InOutQuad);
    connect(&slide_, &QVariantAnimation::valueChanged, this,
            [this](const QVariant& progress) { placeRows(progress.toDouble()); });
}

TileList::~TileList() { delete lifted_; }

TileRow* TileList::makeRow() {
    auto* made = new TileRow(this);
    connect(made, &TileRow::toggled, this,
            [this, made](bool on) { Q_EMIT toggled(made->content().id, on); });
    connect(made, &TileRow::stepped, this,
            [this, made](TileStep step) { Q_EMIT stepped(made->content().id, step); });
    made->show();
    return made;
}

TileRow* TileList::takeRow(std::vector<TileRow*>& from, const QString& id) {
    const auto found = std::ranges::find_if(
        from, [&id](const TileRow* row) { return row && row->content().id == id; });
    return found == from.end() ? makeRow() : std::exchange(*found, nullptr);
}

void TileList::setTiles(const std::vector<TileContent>& tiles) {
    std::vector<TileRow*> before = std::exchange(rows_, {});
    const std::vector<TileRow*> order = before;
    for (const TileContent& tile : tiles) {
        TileRow* const row = takeRow(before, tile.id);
        row->setContent(tile);
        rows_.push_back(row);
    }
    for (TileRow* gone : before) {
        if (!gone) continue;
        if (press_ && press_->row == gone) endDrag();
        gone->deleteLater();
        gone->hide();
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i]->setSteps(i > 0, i + 1 < rows_.size());
    if (rows_ == order) return;
    orderFocus();
    // A screen reader goes through them as they lie over one another.
    for (TileRow* row : rows_) row->raise();
    accessibility::announceReorder(*this);
    slideToPlaces();
    if (rows_.size() != order.size()) updateGeometry();
}

void TileList::orderFocus() {
    QWidget* last = this;
    const auto follow = [&last](QWidget& next) {
        setTabOrder(last, &next);
        last = &next;
    };
    for (TileRow* row : rows_) {
        follow(*row);
        follow(row->toggle());
        follow(row->button(TileStep::up));
        follow(row->button(TileStep::down));
    }
}

void TileList::slideToPlaces() {
    slide_.stop();
    origins_.clear();
    const int rowsBefore = height() / rowHeight;
    for (const TileRow* row : rows_) origins_.push_back(row->y());
    const bool moves = motion_ == Motion::full && isVisible() && rowsBefore == rowCount();
    if (moves) {
        slide_.start();
    } else {
        placeRows(1);
    }
}

void TileList::placeRows(double progress) {
    for (int i = 0; i < rowCount(); ++i) {
        const int from = origins_[static_cast<std::size_t>(i)];
        const int top = from + static_cast<int>(progress * (i * rowHeight - from));
        row(i).setGeometry(0, top, width(), rowHeight);
    }
}

QSize TileList::sizeHint() const {
    return {metrics::popoverWidth - 2 * metrics::contentInset, rowCount() * rowHeight};
}

void TileList::resizeEvent(QResizeEvent* event) {
    KitWidget::resizeEvent(event);
    slide_.stop();
    origins_.assign(rows_.size(), 0);
    placeRows(1);
}

void TileList::hideEvent(QHideEvent* event) {
    slide_.stop();
    origins_.assign(rows_.size(), 0);
    placeRows(1);
    endDrag();
    KitWidget::hideEvent(event);
}

void TileList::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    for (int i = 1; i < rowCount(); ++i)
        paint::separator(painter, 0, width(), i * rowHeight, color(ColorToken::separator));
}

TileRow* TileList::rowAt(QPoint position) const {
    if (!rect().contains(position)) return nullptr;
    const int index = position.y() / rowHeight;
    return index < rowCount() ? rows_[static_cast<std::size_t>(index)] : nullptr;
}

std::optional<QString> TileList::draggingItem() const {
    return lifted_ && press_ ? std::optional(press_->row->content().id) : std::nullopt;
}

void TileList::mousePressEvent(QMouseEvent* event) {
    event->accept();
    if (event->button() != Qt::LeftButton) return;
    const QPoint at = event->position().toPoint();
    TileRow* const pressed = rowAt(at);
    endDrag();
    if (pressed) press_ = Press{pressed, at};
}

void TileList::mouseMoveEvent(QMouseEvent* event) {
    if (!press_) return;
    // That happens when another window takes the pointer.
    if (!(event->buttons() & Qt::LeftButton)) return endDrag();
    const QPoint at = event->position().toPoint();
    if (!lifted_) {
        if ((at - press_->at).manhattanLength() < QApplication::startDragDistance()) return;
        beginDrag();
    }
    pointer_ = event->globalPosition().toPoint();
    follow(at);
    if (scrollStep(at) == 0) {
        scrolling_.stop();
    } else if (!scrolling_.isActive()) {
        scrolling_.start();
    }
}

void TileList::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) endDrag();
}

void TileList::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape || !lifted_) return KitWidget::keyPressEvent(event);
    endDrag();
}

void TileList::beginDrag() {
    // Where the row lies, from where it was taken.
    press_->at.ry() -= press_->row->y();
    auto* lifted = new LiftedTile(*press_->row);
    lifted_ = lifted;
    press_->row->setLifted(true);
    lifted->show();
}

void TileList::follow(QPoint position) {
    TileRow* const dragged = press_->row;
    const int top = std::clamp(position.y() - press_->at.y(), 0, height() - rowHeight);
    static_cast<LiftedTile*>(lifted_.data())->moveTo(mapTo(window(), QPoint(0, top)));
    // What lies beyond the page's edge is not seen, and comes when the page has scrolled.
    const QRect seen = visiblePart();
    const int y =
        seen.isEmpty() ? position.y() : std::clamp(position.y(), seen.top(), seen.bottom());
    TileRow* const over = rowAt(seen.height() < height() ? QPoint(position.x(), y) : position);
    if (!over || over == dragged) return;
    Q_EMIT entered(dragged->content().id, over->content().id);
}

QRect TileList::visiblePart() const {
    const QAbstractScrollArea* page = pageOf(*this);
    if (!page) return rect();
    const QWidget& view = *page->viewport();
    const int top = mapFrom(&view, QPoint()).y();
    return rect() & QRect(0, top, width(), view.height());
}

int TileList::scrollStep(QPoint position) const {
    const QRect seen = visiblePart();
    const int above = seen.top() + edgeReach - position.y();
    const int below = position.y() - (seen.bottom() - edgeReach);
    // The nearer to the edge, the faster.
    const auto paced = [](int reach) {
        return std::clamp(reach * mostStep / edgeReach, 1, mostStep);
    };
    if (above > 0 && seen.top() > 0) return -std::min(paced(above), seen.top());
    const int hidden = height() - 1 - seen.bottom();
    return below > 0 && hidden > 0 ? std::min(paced(below), hidden) : 0;
}

void TileList::scroll() {
    QAbstractScrollArea* page = pageOf(*this);
    const int step = lifted_ && page ? scrollStep(mapFromGlobal(pointer_)) : 0;
    if (step == 0) return scrolling_.stop();
    QScrollBar& bar = *page->verticalScrollBar();
    bar.setValue(bar.value() + step);
    follow(mapFromGlobal(pointer_));
}

void TileList::endDrag() {
    scrolling_.stop();
    if (press_ && lifted_) press_->row->setLifted(false);
    press_.reset();
    if (!lifted_) return;
    // The window may be going through its children now, to hide them.
    lifted_->hide();
    lifted_->deleteLater();
    lifted_.clear();
}

}  // namespace vtx
