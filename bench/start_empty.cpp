#include "start_probe.h"

#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>
#include <QStatusBar>

/// The yardstick: a main window with one menu and a status bar.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QMainWindow window;
    window.menuBar()->addMenu(QStringLiteral("Menu"))->addAction(QStringLiteral("Entry"));
    window.statusBar();
    window.resize(618, 500);
    ReportFirstPaint(&window);
    window.show();
    return QApplication::exec();
}
