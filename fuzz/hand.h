#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QTabBar>

#include <algorithm>
#include <random>

extern "C" size_t LLVMFuzzerMutate(unsigned char* data, size_t size, size_t mostSize);

/// The input of a fuzz target as choices, byte by byte; zeros behind its end.
class Steps {
public:
    explicit Steps(QByteArrayView bytes)
        : bytes(bytes) {}

    bool AtEnd() const { return bytes.isEmpty(); }

    QByteArrayView Take(qsizetype count) {
        const QByteArrayView taken = bytes.first(std::min(count, bytes.size()));
        bytes = bytes.sliced(taken.size());
        return taken;
    }
    quint8 Byte() {
        const QByteArrayView one = Take(1);
        return one.isEmpty() ? 0 : quint8(one[0]);
    }
    int Number() {
        const int high = Byte();
        return high << 8 | Byte();
    }

    /// One of `choices`; null if there is none.
    template <class T> T* Pick(const QList<T*>& choices) {
        return choices.isEmpty() ? nullptr : choices[Byte() % choices.size()];
    }

private:
    QByteArrayView bytes;
};

/// A mutator that often adds steps: only a long row of them comes far.
inline size_t GrowSteps(unsigned char* data, size_t size, size_t mostSize, unsigned seed) {
    std::minstd_rand random(seed);
    if (random() % 4 == 0 || size == mostSize)
        return LLVMFuzzerMutate(data, size, mostSize);
    for (auto more = random() % 64; more > 0 && size < mostSize; --more)
        data[size++] = static_cast<unsigned char>(random() >> 8);
    return size;
}

/// A user's hand: works one control of a window, which one and how the steps say.
class Hand {
public:
    explicit Hand(Steps& steps)
        : steps(steps) {}

    /// A window that can be reached: the main window or one above it.
    QWidget* Top(QWidget& mainWindow) {
        if (QWidget* popup = QApplication::activePopupWidget())
            return popup;
        if (QWidget* modal = QApplication::activeModalWidget())
            return modal;
        QWidgetList open{&mainWindow};
        for (QDialog* form : mainWindow.findChildren<QDialog*>())
            if (form->isVisible())
                open += form;
        return steps.Pick(open);
    }

    void Work(QWidget& window) {
        if (auto* menu = qobject_cast<QMenu*>(&window))
            return WorkMenu(*menu);
        QWidgetList controls;
        for (QWidget* child : window.findChildren<QWidget*>())
            if (child->isVisible() && child->isEnabled() && child->window() == &window &&
                child->focusPolicy() != Qt::NoFocus)
                controls += child;
        QWidget* control = steps.Pick(controls);
        if (auto* button = qobject_cast<QAbstractButton*>(control))
            button->click();
        else if (auto* combo = qobject_cast<QComboBox*>(control))
            WorkCombo(*combo);
        else if (auto* tabs = qobject_cast<QTabBar*>(control))
            tabs->setCurrentIndex(steps.Byte() % std::max(1, tabs->count()));
        else if (auto* view = qobject_cast<QAbstractItemView*>(control))
            WorkView(*view);
        else if (control != nullptr)
            Type(*control);
    }

private:
    static void Press(QWidget& widget, int key, const QString& text = {}) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(&widget, &press);
    }

    void WorkMenu(QMenu& menu) {
        QAction* action = steps.Pick(menu.actions());
        menu.close();
        if (action != nullptr && action->isEnabled() && action->isVisible())
            action->trigger();
    }

    void WorkCombo(QComboBox& combo) {
        const int choice = steps.Byte();
        if (combo.count() == 0 || (combo.isEditable() && choice % 4 == 0))
            return Type(combo);
        const int index = choice % combo.count();
        combo.setCurrentIndex(index);
        emit combo.activated(index);
    }

    void WorkView(QAbstractItemView& view) {
        const int choice = steps.Byte() % 24;
        if (choice < 8) { // to another row
            Press(view, Qt::Key_Home + choice);
        } else if (choice < 16) { // Enter and Delete are among these
            Press(view, Qt::Key_Escape + choice - 8);
        } else {
            QContextMenuEvent menu(QContextMenuEvent::Keyboard, {}, {});
            QCoreApplication::sendEvent(&view, &menu);
        }
    }

    void Type(QWidget& widget) {
        const int what = steps.Byte();
        if (what >= 0x80)
            return Press(widget, Qt::Key_Escape + (what & 0x1F));
        for (const char c : steps.Take(what % 32))
            Press(widget, 0, QString(QLatin1Char(c)));
    }

    Steps& steps;
};
