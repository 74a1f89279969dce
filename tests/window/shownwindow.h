// The program's window among all that the toolkit shows.
#pragma once

#include "refhost/window/mainwindow.h"

#include <QApplication>

namespace windowtest {

// The first that is visible; null when there is none.
inline quelhost::MainWindow* shownWindow()
{
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        auto* const window = qobject_cast<quelhost::MainWindow*>(widget);
        if (window != nullptr && window->isVisible())
            return window;
    }
    return nullptr;
}

} // namespace windowtest
