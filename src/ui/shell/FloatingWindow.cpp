// SPDX-License-Identifier: MIT
#include "ui/shell/FloatingWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QScreen>
#include <QWindow>
#include <utility>

#include "ui/kit/Metrics.h"
#include "ui/kit/Theme.h"
#include "ui/shell/FloatingPlacement.h"
#include "ui/shell/ShellShape.h"
#include "ui/shell/WindowSystem.h"

namespace vtx {
namespace {

constexpr float hoverOpacity = 0.35F;
/// Further in than this every point lies within the rounded corners too.
constexpr int clearOfCorners = 4;

}  // namespace

FloatingWindow::FloatingWindow(WindowSystem& system) : system_(system) {
    accessibility::install();
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                   Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setCursor(Qt::OpenHandCursor);
    connect(&Theme::current(), &Theme::changed, this, qOverload<>(&QWidget::update));
    followScreens();
}

void FloatingWindow::setContent(QWidget* content) {
    content->setParent(this);
    content->setAttribute(Qt::WA_TransparentForMouseEvents);
    content->move(0, 0);
    setFixedSize(content->size());
    content->show();
}

void FloatingWindow::showAt(std::optional<QPoint> saved) {
    winId();
    system_.makeFloating(*this);
    if (const auto place = FloatingPlacement::place(saved, size(), system_.screens())) {
        home_ = saved.value_or(*place);
        placeAt(*place);
    }
    ShellShape::cut(*this, shape(0), system_);
    show();
    raise();
}

void FloatingWindow::placeAt(QPoint place) {
    placed_ = place;
    move(place);
}

void FloatingWindow::followScreens() {
    const auto follow = [this](QScreen* screen) {
        connect(screen, &QScreen::geometryChanged, this, &FloatingWindow::screensChanged);
        connect(screen, &QScreen::logicalDotsPerInchChanged, this, &FloatingWindow::screensChanged);
    };
    for (QScreen* screen : QGuiApplication::screens()) follow(screen);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this, follow](QScreen* screen) {
        follow(screen);
        screensChanged();
    });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this, &FloatingWindow::screensChanged);
}

// One change of the desktop is told screen by screen, and only then looked at.
void FloatingWindow::screensChanged() {
    if (std::exchange(isLookPending_, true)) return;
    QMetaObject::invokeMethod(this, &FloatingWindow::comeHome, Qt::QueuedConnection);
}

void FloatingWindow::comeHome() {
    isLookPending_ = false;
    const auto screens = system_.screens();
    if (screens.empty() || !isVisible()) return;
    ShellShape::cut(*this, shape(0), system_);  // for another scale
    const QPoint place = FloatingPlacement::inView(QRect(home_, size()), screens);
    if (!seized_ && place != pos()) placeAt(place);
}

QPainterPath FloatingWindow::shape(double inset) const {
    const QRectF framed = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
    return ShellShape::rounded(framed, {}, metrics::radiusWindow - inset);
}

void FloatingWindow::paintEvent(QPaintEvent* event) {
    const Theme& theme = Theme::current();
    QPainter painter(this);
    const QColor ground = theme.color(ColorToken::window);
    constexpr int clear = clearOfCorners;
    // A changed figure touches neither corners nor outline.
    if (rect().adjusted(clear, clear, -clear, -clear).contains(event->rect())) {
        painter.setCompositionMode(QPainter::CompositionMode_Source);
        for (const QRect& part : event->region()) painter.fillRect(part, ground);
        return;
    }
    const bool isHeld = underMouse() || seized_;
    QPen pen = ShellShape::outline(theme.color(ColorToken::borderStrong), devicePixelRatioF());
    if (isHeld) pen = QPen(theme.color(ColorToken::accent, hoverOpacity), metrics::strokeEmphasis);
    ShellShape::paint(painter, *this, shape(pen.widthF() / 2), pen, ground);
}

void FloatingWindow::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    if (!system_.placesWindows()) {
        if (QWindow* window = windowHandle()) window->startSystemMove();
        return;
    }
    seized_ = event->globalPosition().toPoint() - pos();
    setCursor(Qt::ClosedHandCursor);
}

void FloatingWindow::mouseMoveEvent(QMouseEvent* event) {
    if (seized_) move(event->globalPosition().toPoint() - *seized_);
}

void FloatingWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return;
    seized_.reset();
    setCursor(Qt::OpenHandCursor);
    update();
}

void FloatingWindow::enterEvent(QEnterEvent*) { update(); }

void FloatingWindow::leaveEvent(QEvent*) { update(); }

void FloatingWindow::moveEvent(QMoveEvent* event) {
    if (!isVisible() || event->pos() == placed_) return;
    placed_.reset();
    home_ = event->pos();
    if (onMove) onMove(home_);
}

void FloatingWindow::closeEvent(QCloseEvent* event) { event->setAccepted(!event->spontaneous()); }

}  // namespace vtx
