#include "visit/gallery.h"

#include "app/program.h"
#include "forms/tab_frames.h"
#include "practice/practice_server.h"
#include "visit/form_catalog.h"
#include "visit/furnish.h"
#include "visit/palettes.h"

#include <QApplication>
#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

bool Save(QWidget& window, const QString& path) {
    window.show();
    QTest::qWait(50);
    const bool isSaved = window.grab().save(path);
    window.hide();
    return isSaved;
}

/// A form with tabs has a picture of each.
bool SaveForm(Form& form, const QString& folder, const QString& suffix) {
    const QString start = folder + u'/' + form.objectName() + u'-';
    auto* tabs = form.findChild<TabFrames*>();
    if (tabs == nullptr)
        return Save(form, start + suffix);
    bool isSaved = true;
    for (int i = 0; i < tabs->Strip()->count(); ++i) {
        tabs->SetIndex(i);
        isSaved = Save(form, start + QString::number(i + 1) + u'-' + suffix) && isSaved;
    }
    return isSaved;
}

/// `window` comes up and greets the server, which then tells its devices.
bool Connect(Session& session, frmRemote& window, StatusStore& status, quint16 port) {
    session.RemoteHost = u"127.0.0.1"_s;
    session.RemotePort = port;
    session.Connect();
    if (!QTest::qWaitFor([&] { return !window.Panel().cmdRem.empty(); }))
        return false;
    status.Request();
    return QTest::qWaitFor([&] { return status.BusTotal() > 0; });
}

bool MakePictures(const QString& folder, const QString& word, const QString& suffix) {
    const QString programFolder = QCoreApplication::applicationDirPath();
    PracticeServer server;
    server.GetOutcomes().learnTime = 60'000; // the picture is taken while a command is being learned
    Session session;
    Language language;
    ChooseLanguage(language, programFolder, word, false);
    Boxes boxes(language);
    const FormServices services{session, language, boxes};
    StatusStore status(session);
    frmRemote window(services, [programFolder] { return programFolder + u"/Remote.lyt"_s; });
    if (!server.Listen() || !Connect(session, window, status, server.Port()))
        return false;
    bool isSaved = Save(window, folder + u"/frmRemote-"_s + suffix);
    for (const auto& make : FormMakers(services, status, nullptr)) {
        const std::unique_ptr<Form> form(make());
        Furnish(*form);
        isSaved = SaveForm(*form, folder, suffix) && isSaved;
    }
    return isSaved;
}

} // namespace

bool MakeGallery(const QString& folder) {
    if (!QDir().mkpath(folder))
        return false;
    const QPalette light = QApplication::palette();
    bool isSaved = true;
    for (const bool isDark : {false, true}) {
        QApplication::setPalette(isDark ? DarkPalette() : light);
        for (const QString& word : {u"German"_s, u"English"_s})
            isSaved =
                MakePictures(folder, word, word + (isDark ? u"-dark.png"_s : u"-light.png"_s)) && isSaved;
    }
    return isSaved;
}
