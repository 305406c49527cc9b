#pragma once

#include <QCoreApplication>

/// Lets the event loop run until `condition` holds.
template <class Condition> void WaitFor(Condition condition) {
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}
