#pragma once

#include <QStackedWidget>
#include <QTabBar>

/// A tab strip and the frames of which it shows one. It is as large as the largest frame. Ctrl+Tab goes to
/// the next tab, with Shift to the one before, wherever the focus is in the window; so a window has one of
/// these.
class TabFrames : public QWidget {
    Q_OBJECT

public:
    /// `name` is that of the strip.
    TabFrames(const QString& name, QWidget* parent);

    /// Adds a tab and its frame, which may be any widget and becomes a child of this one.
    void AddPage(const QString& caption, QWidget* frame);

    /// The strip itself. A tab can be hidden there, and the whole strip.
    QTabBar* Strip() const { return strip; }

    /// The tab that is up, from 0; -1 while there are none.
    int Index() const { return strip->currentIndex(); }
    void SetIndex(int index) { strip->setCurrentIndex(index); }

signals:
    void Changed(int index);

private:
    void Step(int direction);

    QTabBar* strip;
    QStackedWidget* frames;
};
