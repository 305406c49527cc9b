#include "visit/gallery.h"

#include "app/program.h"
#include "forms/tab_frames.h"
#include "visit/form_catalog.h"

#include <QApplication>
#include <QDir>
#include <QPalette>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

QPalette DarkPalette() {
    QPalette colors(QColor(53, 53, 53), QColor(42, 42, 46));
    colors.setColor(QPalette::Base, QColor(30, 30, 33));
    colors.setColor(QPalette::Text, QColor(230, 230, 230));
    colors.setColor(QPalette::WindowText, QColor(230, 230, 230));
    colors.setColor(QPalette::ButtonText, QColor(230, 230, 230));
    colors.setColor(QPalette::Highlight, QColor(70, 130, 210));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        colors.setColor(QPalette::Disabled, role, QColor(130, 130, 130));
    return colors;
}

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

bool MakePictures(const QString& folder, const QString& word, const QString& suffix) {
    Session session;
    Language language;
    ChooseLanguage(language, QCoreApplication::applicationDirPath(), word, false);
    Boxes boxes(language);
    const FormServices services{session, language, boxes};
    frmRemote window(services, [] { return QString(); });
    bool isSaved = Save(window, folder + u"/frmRemote-"_s + suffix);
    for (Form* form : MakeAllForms(services, nullptr)) {
        isSaved = SaveForm(*form, folder, suffix) && isSaved;
        delete form;
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
