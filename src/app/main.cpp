#include "app/program.h"

#include <QApplication>

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Calvoris"));
    // The main window alone decides when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);

    Program program({ReadStartOptions(QApplication::arguments().mid(1)),
                     QApplication::applicationDirPath(),
                     GetSystemLanguage(),
                     {}});
    QObject::connect(&program, &Program::Ended, &application, &QApplication::quit, Qt::QueuedConnection);
    program.Start();
    return QApplication::exec();
}
