// SPDX-License-Identifier: MIT
#include "app/linux/LinuxDesktop.h"

#include <QApplication>
#include <QIcon>
#include <QPixmap>
#include <QThreadPool>

#include "app/linux/PortalAppearanceSource.h"
#include "platform/linux/Environment.h"
#include "ui/kit/Symbol.h"
#include "ui/kit/Theme.h"
#include "ui/shell/linux/StatusNotifierTray.h"

namespace vtx {
namespace {

/// What the toolkit draws large areas with. It comes again with the next one, and charts are drawn
/// once a second.
constexpr int poolPatienceMs = 3000;

void setByDefault(const char* name, const QByteArray& value) {
    if (!qEnvironmentVariableIsSet(name)) qputenv(name, value);
}

QIcon applicationIcon() {
    QIcon icon;
    for (const int size : {16, 32, 48, 128})
        icon.addPixmap(QPixmap::fromImage(symbols::image(
            "waveform.path.ecg", size, tokenColor(ColorToken::accent, Appearance::light), 1.0)));
    return icon;
}

}  // namespace

struct LinuxDesktop::Members {
    Members(RunLoop& loop, Executor& main)
        : session(loop, main, sessionBusAddress()),
          appearance(session),
          tray(session, QApplication::applicationName(),
               QGuiApplication::applicationDisplayName()) {}

    SystemBus session;
    DesktopAppearance appearance;
    StatusNotifierTray tray;
};

void LinuxDesktop::settleToolkit() {
    // The desktop's own theme plugin may bring a second toolkit into memory. Only one desktop has
    // its theme within ours, and with it the user's palette.
    if (!qgetenv("XDG_CURRENT_DESKTOP").contains("KDE"))
        setByDefault("QT_QPA_PLATFORMTHEME", "generic");
    // Shared memory costs a round trip and two wake-ups for each repaint of a few kilobytes.
    setByDefault("QT_XCB_NO_MITSHM", "1");
}

LinuxDesktop::LinuxDesktop(RunLoop& loop, Executor& main)
    : members_(std::make_unique<Members>(loop, main)) {
    Theme::current().follow(std::make_unique<PortalAppearanceSource>(members_->appearance));
    QApplication::setWindowIcon(applicationIcon());
    symbols::releaseCache();
    QThreadPool::globalInstance()->setExpiryTimeout(poolPatienceMs);
}

SystemBus& LinuxDesktop::session() { return members_->session; }

TrayHost* LinuxDesktop::tray() { return &members_->tray; }

LinuxDesktop::~LinuxDesktop() {
    Theme::current().follow(std::make_unique<PaletteAppearanceSource>());
}

}  // namespace vtx
