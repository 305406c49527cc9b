#include "panel/panel_surface.h"

#include "forms/controls.h"

#include <QPainter>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

PanelLine::PanelLine(const LineElement& element, QWidget* parent)
    : QWidget(parent)
    , color(element.color) {
    setObjectName(u"linLine(0)"_s);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    const QPoint start(ToPixels(element.x1), ToPixels(element.y1));
    const QPoint end(ToPixels(element.x2), ToPixels(element.y2));
    const QRect bounds = QRect(start, end).normalized();
    setGeometry(bounds);
    line = QLine(start - bounds.topLeft(), end - bounds.topLeft());
}

void PanelLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(color ? ToColor(*color) : palette().color(QPalette::WindowText));
    painter.drawLine(line);
}

PanelSurface::PanelSurface(QWidget* parent)
    : QWidget(parent) {
    setObjectName(u"panel"_s);
    setAutoFillBackground(true);
}

void PanelSurface::ShowPermanent(const PanelModel& panel) {
    ApplyBackground(panel);
    const bool onOwnGround = !panel.background;
    AddPageButtons(u"cmdModeP"_s, panel.cmdModeP, permanent);
    AddLabels(u"lblMain"_s, panel.lblMain, onOwnGround, permanent);
    AddCommandButtons(panel.cmdRem);
    OrderTabs();
}

void PanelSurface::ShowPage(const PanelModel& panel) {
    setUpdatesEnabled(false);
    for (PanelButton* button : commands)
        delete button;
    for (QWidget* control : page)
        delete control;
    commands.clear();
    page.clear();

    ApplyBackground(panel);
    AddPageButtons(u"cmdMode"_s, panel.cmdMode, page);
    AddLabels(u"lblRem"_s, panel.lblRem, !panel.background, page);
    AddCommandButtons(panel.cmdRem);
    OrderTabs();
    setUpdatesEnabled(true);
}

void PanelSurface::ApplyBackground(const PanelModel& panel) {
    QPalette colors;
    if (panel.background)
        colors.setColor(QPalette::Window, ToColor(*panel.background));
    setPalette(colors);
    delete std::exchange(line, nullptr);
    if (panel.linLine) {
        line = new PanelLine(*panel.linLine, this);
        line->lower();
        line->show();
    }
}

void PanelSurface::AddPageButtons(const QString& name, const std::vector<PageButtonElement>& elements,
                                  std::vector<QWidget*>& owner) {
    for (int index = 1; const PageButtonElement& element : elements) {
        auto* button = new PanelButton(ElementName(name, index++), element, this);
        // Queued, as the page that a button stands on goes away with it.
        connect(
            button, &PanelButton::clicked, this,
            [this, section = element.section] { emit PagePicked(section); }, Qt::QueuedConnection);
        button->show();
        owner.push_back(button);
    }
}

void PanelSurface::AddCommandButtons(const std::vector<CommandButtonElement>& elements) {
    for (int index = 1; const CommandButtonElement& element : elements) {
        auto* button = new PanelButton(ElementName(u"cmdRem"_s, index), element, this);
        connect(button, &PanelButton::pressed, this, [this, index] { emit CommandDown(index); });
        connect(button, &PanelButton::released, this, &PanelSurface::CommandUp);
        button->show();
        commands.push_back(button);
        ++index;
    }
}

void PanelSurface::AddLabels(const QString& name, const std::vector<LabelElement>& elements, bool onOwnGround,
                             std::vector<QWidget*>& owner) {
    for (int index = 1; const LabelElement& element : elements) {
        auto* label = MakeLabel(ElementName(name, index++), element.caption, this);
        SetPanelFont(*label, element);
        label->setWordWrap(true);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        label->setGeometry(ToPixels(element.rect));
        QPalette colors;
        if (element.backColor)
            colors.setColor(QPalette::Window, ToColor(*element.backColor));
        // Black is what a label has that names no colour; on the palette's own ground that is its text
        // colour.
        if (element.foreColor && (*element.foreColor != 0 || !onOwnGround))
            colors.setColor(QPalette::WindowText, ToColor(*element.foreColor));
        label->setPalette(colors);
        label->setAutoFillBackground(element.backColor.has_value());
        label->show();
        owner.push_back(label);
    }
}

/// Tab goes through the buttons as they are read: row by row, each from the left.
void PanelSurface::OrderTabs() {
    std::vector<QWidget*> buttons(commands.begin(), commands.end());
    for (const auto* group : {&permanent, &page})
        std::copy_if(group->begin(), group->end(), std::back_inserter(buttons),
                     [](QWidget* control) { return control->focusPolicy() != Qt::NoFocus; });
    std::stable_sort(buttons.begin(), buttons.end(), [](const QWidget* a, const QWidget* b) {
        return std::pair(a->y(), a->x()) < std::pair(b->y(), b->x());
    });
    ChainTabs(buttons);
}

void PanelSurface::DisableCommand(int index) {
    if (index >= 1 && index <= int(commands.size()))
        commands[size_t(index - 1)]->setEnabled(false);
}

void PanelSurface::EnableCommands() {
    for (PanelButton* button : commands)
        button->setEnabled(true);
}

void PanelSurface::LoseReleases() {
    for (PanelButton* button : commands)
        button->LoseRelease();
}
