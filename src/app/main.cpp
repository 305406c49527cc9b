#include "app/program.h"

#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

/// The icon of the theme; where nothing is installed, the same from the program itself.
QIcon ProgramIcon() {
    QIcon own;
    const QDir sizes(u":/program"_s);
    for (const QString& file : sizes.entryList())
        own.addFile(sizes.filePath(file));
    return QIcon::fromTheme(u"" PROGRAM_ID ""_s, own);
}

} // namespace

int main(int argc, char** argv) {
    if (const QString answer = AnswerOnTerminal(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString());
        !answer.isEmpty()) {
        QTextStream(stdout) << answer;
        return 0;
    }
    QApplication application(argc, argv);
    QApplication::setApplicationName(u"Calvoris"_s);
    QApplication::setDesktopFileName(u"" PROGRAM_ID ""_s);
    QApplication::setWindowIcon(ProgramIcon());
    // The main window alone decides when the program ends.
    QApplication::setQuitOnLastWindowClosed(false);

    Program program({ReadStartOptions(QApplication::arguments().mid(1)),
                     FindShippedFiles(QApplication::applicationDirPath(), u"" INSTALLED_FILES ""_s),
                     GetSystemLanguage(),
                     {}});
    QObject::connect(&program, &Program::Ended, &application, &QApplication::quit, Qt::QueuedConnection);
    program.Start();
    return QApplication::exec();
}
