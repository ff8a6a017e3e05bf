// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include "base/TaskScope.h"

class QWidget;

namespace vtx {

class Clock;
class MenuBarController;
class QtSurfaceFactory;

/// Walks once through the running program: shows each surface, saves what the screen shows of it,
/// says the strip's spoken summary once a second for five seconds on standard output, and ends the
/// application, with 1 if a picture could not be saved. Main executor.
class PictureTour {
public:
    PictureTour(QString folder, Clock& clock, Executor& main, QtSurfaceFactory& surfaces);

    void start(MenuBarController& controller);

private:
    Task<> walk(MenuBarController& controller);
    Task<> wait(double seconds);
    void save(QWidget* window, const char* name);

    const QString folder_;
    Clock& clock_;
    QtSurfaceFactory& surfaces_;
    bool failed_ = false;
    TaskScope tasks_;
};

}  // namespace vtx
