// SPDX-License-Identifier: MIT
#include "ui/surfaces/DashboardWindowController.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>
#include <chrono>
#include <utility>

#include "platform/UserDefaults.h"
#include "ui/kit/AccessibleParts.h"
#include "ui/surfaces/PopoverView.h"

namespace vtx {
namespace {

constexpr QSize firstSize{460, 700};
constexpr QSize leastSize{420, 620};
// From the last move or change of size to the store: a drag is stored once.
constexpr std::chrono::milliseconds restBeforeStore{1000};

}  // namespace

/// The window itself: tells of its closing, however it came about.
class DashboardWindowController::Window final : public QWidget, public AccessibleHost {
public:
    explicit Window(DashboardWindowController& owner) : owner_(owner) {
        accessibility::install();
        setMinimumSize(leastSize);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        rest_.setSingleShot(true);
        rest_.setInterval(restBeforeStore);
        connect(&rest_, &QTimer::timeout, this, [this] { owner_.storeFrame(); });
    }

    [[nodiscard]] QAccessible::Role accessibleRole() const override { return QAccessible::Window; }

    void setContent(QWidget* content) {
        delete content_;
        content_ = content;
        if (!content) return;
        layout()->addWidget(content);
        content->show();
        content->setFocus();  // the keyboard would be left with the content that went
    }

    void restoreFrame(const std::optional<Data>& stored) {
        const auto bytes = stored ? asText(*stored) : std::string_view();
        const QByteArray frame(bytes.data(), static_cast<qsizetype>(bytes.size()));
        if (!frame.isEmpty() && restoreGeometry(frame)) return;
        resize(firstSize);
        const QRect room = screen()->availableGeometry();
        move(room.center() - rect().center());
    }

protected:
    void moveEvent(QMoveEvent*) override { frameChanged(); }
    void resizeEvent(QResizeEvent*) override { frameChanged(); }
    void closeEvent(QCloseEvent* event) override {
        rest_.stop();
        owner_.windowWillClose();
        event->accept();
        // What the window was drawn in is most of what it costs.
        QMetaObject::invokeMethod(
            this,
            [this] {
                if (isVisible()) return;
                destroy();
                if (owner_.didLetGo) owner_.didLetGo();
            },
            Qt::QueuedConnection);
    }

private:
    void frameChanged() {
        if (isVisible()) rest_.start();
    }

    DashboardWindowController& owner_;
    QTimer rest_{this};
    QWidget* content_ = nullptr;
};

DashboardWindowController::DashboardWindowController(MetricsCoordinator& coordinator,
                                                     UserDefaults& defaults, QString title)
    : coordinator_(coordinator), defaults_(defaults), title_(std::move(title)) {}

DashboardWindowController::~DashboardWindowController() {
    onVisibilityChange = nullptr;
    if (window_ && window_->isVisible()) window_->close();
}

QWidget* DashboardWindowController::window() const { return window_.get(); }

void DashboardWindowController::show(PopoverSection section) {
    if (!window_) {
        window_ = std::make_unique<Window>(*this);
        window_->setWindowTitle(title_);
        window_->restoreFrame(defaults_.data(frameKey));
    }
    window_->setContent(
        new PopoverView(coordinator_, PopoverView::SurfaceKind::dashboard, section));
    if (window_->isMinimized()) window_->showNormal();
    window_->show();
    window_->raise();
    window_->activateWindow();
    if (onVisibilityChange) onVisibilityChange(true);
}

void DashboardWindowController::storeFrame() {
    const QByteArray frame = window_->saveGeometry();
    Data bytes = toData({frame.constData(), static_cast<std::size_t>(frame.size())});
    if (defaults_.data(frameKey) != bytes) defaults_.setData(frameKey, std::move(bytes));
}

void DashboardWindowController::windowWillClose() {
    storeFrame();
    if (onVisibilityChange) onVisibilityChange(false);
    window_->setContent(nullptr);
}

}  // namespace vtx
