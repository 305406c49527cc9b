#include "visit/visit.h"

#include "forms/controls.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QTextStream>

using namespace Qt::StringLiterals;

Visit::Visit(const QString& folder)
    : folder(folder) {
    connect(&server, &PracticeServer::Said, this,
            [this](const QString& words) { Say(u"    server: "_s + words); });
}

void Visit::Say(const QString& line) {
    static QTextStream out(stdout);
    out << line << Qt::endl;
}

bool Visit::Await(const QString& what, const std::function<bool()>& condition) {
    if (QTest::qWaitFor(condition, 5000))
        return true;
    Say(u"Failed: "_s + what);
    return false;
}

void Visit::Picture(const QString& name, QWidget* window) {
    if (window == nullptr)
        window = &program->MainWindow();
    const QString path = u"%1/%2-%3.png"_s.arg(folder).arg(++pictures, 2, 10, QChar(u'0')).arg(name);
    if (window->grab().save(path))
        Say(u"  picture: "_s + path);
    else
        Say(u"  the picture can't be written: "_s + path);
}

QAbstractButton* Visit::Button(const QString& caption) const {
    for (QAbstractButton* button : program->MainWindow().findChildren<QAbstractButton*>())
        if (FromMnemonicText(button->text()) == caption && button->isVisible() && button->isEnabled())
            return button;
    return nullptr;
}

bool Visit::Press(const QString& caption, int milliseconds) {
    QAbstractButton* button = Button(caption);
    if (button == nullptr) {
        Say(u"Failed: there is no button \"%1\" to press"_s.arg(caption));
        return false;
    }
    const int before = acknowledged;
    QTest::mousePress(button, Qt::LeftButton);
    QTest::qWait(milliseconds);
    if (milliseconds > 0)
        Picture(u"held"_s);
    QTest::mouseRelease(button, Qt::LeftButton);
    return Await(u"an acknowledgement of \"%1\""_s.arg(caption), [&] { return acknowledged > before; });
}

bool Visit::OpenPage(int index) {
    auto* entry = program->MainWindow().findChild<QAction*>(u"mnuRemoteItem(%1)"_s.arg(index));
    if (entry == nullptr) {
        Say(u"Failed: there is no page %1"_s.arg(index));
        return false;
    }
    Say(u"Going to page \"%1\"."_s.arg(entry->text()));
    entry->trigger();
    QTest::qWait(300); // the check of the page's buttons is part of the exchange
    Picture(u"page-%1"_s.arg(index));
    return true;
}

bool Visit::WalkPanel() {
    const auto& panel = program->MainWindow().Panel();
    if (!Await(u"the panel"_s, [&] { return !panel.cmdRem.empty(); }))
        return false;
    QTest::qWait(300);
    Picture(u"start"_s);

    const QString first = panel.cmdRem.front().caption;
    Say(u"Pressing \"%1\" for a moment."_s.arg(first));
    if (!Press(first, 0))
        return false;
    auto* remote = program->MainWindow().findChild<QLabel*>(u"sb1(1)"_s);
    if (!Await(u"the received code in the status bar"_s, [&] { return !remote->text().isEmpty(); }))
        return false;
    const QString last = panel.cmdRem.back().caption;
    Say(u"Holding \"%1\": it repeats on the server's acknowledgements."_s.arg(last));
    if (!Press(last, 450))
        return false;

    for (int page = 2; page <= int(panel.cmdModeP.size()); ++page)
        if (!OpenPage(page))
            return false;
    return true;
}

bool Visit::Run() {
    if (!QDir().mkpath(folder)) {
        Say(u"Failed: the folder \"%1\" can't be made"_s.arg(folder));
        return false;
    }
    if (!server.Listen()) {
        Say(u"Failed: the practice server: "_s + server.ErrorText());
        return false;
    }
    const QString programFolder = QCoreApplication::applicationDirPath();
    program = std::make_unique<Program>(Program::Options{{u"127.0.0.1"_s, false},
                                                         programFolder,
                                                         GetSystemLanguage(),
                                                         programFolder + u"/Remote.lyt"_s,
                                                         server.Port()});
    connect(&program->Link(), &Session::Acknowledged, this, [this] { ++acknowledged; });
    Say(u"Starting the client."_s);
    program->Start();
    const bool ok = WalkPanel();
    Say(u"The pictures are in "_s + QDir(folder).absolutePath());
    return ok;
}
