// SPDX-License-Identifier: MIT
#include "ui/shell/AnchoredWindow.h"

#include <QApplication>
#include <QHideEvent>
#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QScreen>
#include <QWindow>
#include <utility>

#include "ui/kit/Metrics.h"
#include "ui/kit/Theme.h"
#include "ui/shell/ShellShape.h"
#include "ui/shell/WindowSystem.h"

namespace vtx {

namespace {

/// Longer than a window manager takes to pass a press on after it moved the focus.
constexpr int patienceMs = 200;
/// Further in than this lies neither the outline nor a rounded corner.
constexpr int clearOfOutline = 5;

QRect freePartOfScreen(const QRect& anchor) {
    const QScreen* screen = QGuiApplication::screenAt(anchor.center());
    if (!screen) screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect(0, 0, 1280, 800);
}

}  // namespace

AnchoredWindow::AnchoredWindow(WindowSystem& system)
    : system_(system), contentSize_(metrics::popoverWidth, metrics::popoverHeight) {
    setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                   Qt::NoDropShadowWindowHint);
    accessibility::install();
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    patience_.setSingleShot(true);
    patience_.setTimerType(Qt::PreciseTimer);
    patience_.setInterval(patienceMs);
    // Timers come before the window system's events: on a busy machine the keyboard may be back
    // without having been heard.
    connect(&patience_, &QTimer::timeout, this, &AnchoredWindow::giveUp, Qt::QueuedConnection);
    connect(&Theme::current(), &Theme::changed, this, qOverload<>(&QWidget::update));
}

AnchoredWindow::~AnchoredWindow() {
    onClose = nullptr;  // whoever owns it is going, too
    ended();
}

void AnchoredWindow::setContent(QWidget* content) {
    delete std::exchange(content_, content);
    if (!content) return;
    content->setParent(this);
    content->setGeometry(place_.content);
    content->show();
}

void AnchoredWindow::setContentSize(QSize size) { contentSize_ = size; }

void AnchoredWindow::showAt(const QRect& anchor, DockEdge docked) {
    anchor_ = anchor;
    place_ = AnchorPlacement::place(anchor, docked, contentSize_, freePartOfScreen(anchor));
    const bool created = internalWinId() != 0;
    winId();
    if (!created) system_.makePopover(*this);
    system_.bringHere(*this);
    setGeometry(place_.window);
    if (content_) content_->setGeometry(place_.content);
    ShellShape::cut(*this, place_.outline(0), system_);
    update();

    const bool opens = !std::exchange(shown_, true);
    if (opens) {
        wasActive_ = hasAskedBack_ = false;
        focus_ = connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
                         [this](QWindow* window) { focusMoved(window); });
        presses_ = system_.watchPresses([this](QPoint at) { pressedAnywhere(at); });
        show();
    }
    raise();
    activateWindow();
    if (opens && onShow) onShow();
}

void AnchoredWindow::dismiss() {
    if (shown_) hide();
}

void AnchoredWindow::anchorPressed() {
    anchorHeld_ = true;
    patience_.stop();
}

void AnchoredWindow::anchorReleased() {
    anchorHeld_ = false;
    // Still open after a press that did not ask to close it: it stays what the user works with.
    if (shown_ && wasActive_ && !isActiveWindow()) activateWindow();
}

void AnchoredWindow::focusMoved(const QWindow* window) {
    if (isOurs(window)) {
        wasActive_ = true;
        hasAskedBack_ = false;
        patience_.stop();
        return;
    }
    if (!wasActive_ || anchorHeld_ || QApplication::activePopupWidget()) return;
    // A dialog of its own is still to be answered, whoever has the focus meanwhile.
    if (isOurs(QGuiApplication::modalWindow())) return;
    const bool isLost = !window && !system_.worksElsewhere(*this);
    if (isLost || anchor_.contains(system_.pointer())) {
        patience_.start();
    } else {
        dismiss();
    }
}

void AnchoredWindow::giveUp() {
    if (!shown_ || patience_.isActive() || anchorHeld_ || isActiveWindow()) return;
    // A window manager that is at a loss takes the keyboard away and gives it to nobody.
    if (!system_.worksElsewhere(*this) && !std::exchange(hasAskedBack_, true)) {
        activateWindow();
        patience_.start();
    } else {
        dismiss();
    }
}

void AnchoredWindow::pressedAnywhere(QPoint at) {
    if (anchor_.contains(at) || geometry().contains(at)) return;
    if (QApplication::activePopupWidget() || isOurs(QGuiApplication::modalWindow())) return;
    dismiss();
}

bool AnchoredWindow::isOurs(const QWindow* window) const {
    for (; window; window = window->transientParent())
        if (window == windowHandle()) return true;
    return false;
}

void AnchoredWindow::paintEvent(QPaintEvent* event) {
    const Theme& theme = Theme::current();
    QPainter painter(this);
    constexpr int clear = clearOfOutline;
    const QRegion within(place_.content.adjusted(clear, clear, -clear, -clear));
    // Around the whole window the outline takes more spans than the toolkit draws by one thread.
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    for (const QRect& part : event->region() & within)
        painter.fillRect(part, theme.color(ColorToken::window));
    const QRegion rest = event->region() - within;
    if (rest.isEmpty()) return;
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setClipRegion(rest);
    const QPen pen =
        ShellShape::outline(theme.color(ColorToken::borderStrong), devicePixelRatioF());
    ShellShape::paint(painter, *this, place_.outline(pen.widthF() / 2), pen,
                      theme.color(ColorToken::window));
}

void AnchoredWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape) return dismiss();
    QWidget::keyPressEvent(event);
}

void AnchoredWindow::hideEvent(QHideEvent* event) {
    if (!event->spontaneous()) ended();
}

void AnchoredWindow::ended() {
    if (!std::exchange(shown_, false)) return;
    disconnect(focus_);
    presses_.cancel();
    patience_.stop();
    // The window itself goes too: what it was drawn in is most of what it costs.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (!shown_) destroy();
        },
        Qt::QueuedConnection);
    if (onClose) onClose();
}

}  // namespace vtx
