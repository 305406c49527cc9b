#include "start_probe.h"

#include "app/program.h"

#include <QApplication>

/// The program as it starts, up to its window.
int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    Program program({ReadStartOptions({}), QApplication::applicationDirPath(), GetSystemLanguage(), {}});
    ReportFirstPaint(&program.MainWindow());
    program.Start();
    return QApplication::exec();
}
