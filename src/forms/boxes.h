#pragma once

// Room forms: what every dialog is made of. Includes base, link and language; Qt Widgets.

#include "language/language.h"

#include <QMessageBox>
#include <QObject>
#include <QPointer>

#include <deque>
#include <functional>

/// A message box. Title and text are shown as plain text.
struct Box {
    QMessageBox::Icon icon = QMessageBox::Warning;
    QString text;
    QString title;         ///< the program's name if empty
    bool question = false; ///< OK and Cancel instead of OK alone
    QString help = {};     ///< what the user can do about it; stands below the text
};

/// The one door for message boxes.
///
/// Boxes show one at a time, in the order in which they were asked for, and block all windows; nobody waits
/// for one in an event loop of its own. So replies go on being read while a box is up, and a server that
/// sends a thousand errors opens one box after the other. What exceeds WaitingMax is counted and told in a
/// last box.
class Boxes : public QObject {
    Q_OBJECT

public:
    static constexpr int WaitingMax = 20;

    /// Gets true for OK. A box that goes away with its window counts as cancelled.
    using Answer = std::function<void(bool ok)>;

    explicit Boxes(const Language& language, QObject* parent = nullptr);
    ~Boxes() override;

    /// The window over which boxes open while no dialog is up.
    void SetMainWindow(QWidget* window) { mainWindow = window; }

    void Show(const Box& box, Answer answer = {});

    /// Puts the box that is on the screen, if any, before a modal window that has come up since. Behind it
    /// nobody could answer, and all later boxes would wait. The box goes when that window goes.
    void Raise(QWidget* window);

    /// Takes the box from the screen and forgets those that wait. Their answers aren't called.
    void Clear();

    /// The box on the screen, if any.
    QMessageBox* Current() const { return current; }
    /// Boxes that wait behind it.
    int Waiting() const { return int(queue.size()); }

signals:
    void Opened(QMessageBox* box);

private:
    struct Entry {
        Box box;
        Answer answer;
    };

    void OpenNext();
    void Finish(bool ok);

    const Language& language;
    QPointer<QWidget> mainWindow;
    std::deque<Entry> queue;
    QPointer<QMessageBox> current;
    Answer currentAnswer;
    bool isOpen = false;
    int dropped = 0;
};
