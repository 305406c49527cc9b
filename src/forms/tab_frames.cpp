#include "forms/tab_frames.h"

#include "forms/controls.h"

#include <QShortcut>
#include <QVBoxLayout>

TabFrames::TabFrames(const QString& name, QWidget* parent)
    : QWidget(parent)
    , strip(new QTabBar(this))
    , frames(new QStackedWidget(this)) {
    strip->setObjectName(name);
    strip->setExpanding(false);
    auto* rows = new QVBoxLayout(this);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(strip);
    rows->addWidget(frames, 1);

    connect(strip, &QTabBar::currentChanged, this, [this](int index) {
        frames->setCurrentIndex(index);
        emit Changed(index);
    });
    connect(new QShortcut(QKeySequence::NextChild, this), &QShortcut::activated, this, [this] { Step(1); });
    connect(new QShortcut(QKeySequence::PreviousChild, this), &QShortcut::activated, this,
            [this] { Step(-1); });
}

void TabFrames::AddPage(const QString& caption, QWidget* frame) {
    frames->addWidget(frame);
    strip->addTab(ToMnemonicText(caption));
}

void TabFrames::Step(int direction) {
    const int count = strip->count();
    if (strip->isHidden() || count == 0)
        return;
    int index = Index();
    do
        index = (index + direction + count) % count;
    while (!strip->isTabVisible(index) && index != Index());
    SetIndex(index);
}
