#include "forms/boxes.h"

#include <QApplication>
#include <QLabel>

#include <utility>

using namespace Qt::StringLiterals;

Boxes::Boxes(const Language& language, QObject* parent)
    : QObject(parent)
    , language(language) {}

Boxes::~Boxes() {
    Clear();
}

void Boxes::Clear() {
    queue.clear();
    dropped = 0;
    isOpen = false;
    currentAnswer = {};
    if (current.isNull())
        return;
    current->disconnect(this);
    delete current;
}

void Boxes::Show(const Box& box, Answer answer) {
    if (queue.size() >= WaitingMax) {
        ++dropped;
        if (answer)
            answer(false);
        return;
    }
    queue.push_back({box, std::move(answer)});
    if (!isOpen)
        OpenNext();
}

void Boxes::Raise(QWidget* window) {
    if (current.isNull())
        return;
    current->setParent(window, current->windowFlags());
    current->show();
}

void Boxes::OpenNext() {
    if (queue.empty() && dropped > 0) {
        const QString text = language.GetLanguageText(u"frmRemote.MoreMessages"_s,
                                                      u"Weitere Meldungen, die nicht gezeigt wurden: "_s);
        queue.push_back(
            {{QMessageBox::Information, text + QString::number(std::exchange(dropped, 0)), {}}, {}});
    }
    if (queue.empty())
        return;
    const Entry entry = std::move(queue.front());
    queue.pop_front();
    isOpen = true;
    currentAnswer = entry.answer;

    QWidget* modal = QApplication::activeModalWidget();
    auto* box = new QMessageBox(modal != nullptr ? modal : mainWindow.data());
    current = box;
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setIcon(entry.box.icon);
    box->setWindowTitle(entry.box.title.isEmpty() ? QStringLiteral("Calvoris") : entry.box.title);
    box->setTextFormat(Qt::PlainText);
    box->setText(entry.box.text);
    box->setInformativeText(entry.box.help);
    if (auto* help = box->findChild<QLabel*>(u"qt_msgbox_informativelabel"_s))
        help->setTextFormat(Qt::PlainText);
    box->setStandardButtons(entry.box.question ? QMessageBox::Ok | QMessageBox::Cancel : QMessageBox::Ok);
    box->setDefaultButton(QMessageBox::Ok);
    box->setWindowModality(Qt::ApplicationModal);
    connect(box, &QDialog::finished, this, [this, box](int result) {
        box->disconnect(this);
        Finish(result == QMessageBox::Ok);
    });
    connect(box, &QObject::destroyed, this, [this] { Finish(false); });
    box->show();
    emit Opened(box);
}

void Boxes::Finish(bool ok) {
    if (!isOpen)
        return;
    isOpen = false;
    current.clear();
    const Answer answer = std::exchange(currentAnswer, {});
    if (answer)
        answer(ok);
    if (!isOpen)
        OpenNext();
}
