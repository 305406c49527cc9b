#pragma once

#include "panel/panel_button.h"

#include <QLabel>

#include <vector>

/// The separator line, `linLine(0)`.
class PanelLine : public QWidget {
    Q_OBJECT

public:
    PanelLine(const LineElement& line, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QLine line;
    LayoutColor color;
};

/// The part of the main window on which the panel stands: makes the controls of a PanelModel and removes
/// them. Controls stay at the coordinates of the layout.
class PanelSurface : public QWidget {
    Q_OBJECT

public:
    explicit PanelSurface(QWidget* parent);

    /// Makes the controls of MAIN, which stay.
    void ShowPermanent(const PanelModel& panel);

    /// Replaces the controls of the last page, command buttons of MAIN included, by those of `panel`. Not to
    /// be called from inside a signal of one of these controls.
    void ShowPage(const PanelModel& panel);

    /// Greys a command button out, index from 1, or gives all of them back.
    void DisableCommand(int index);
    void EnableCommands();

    /// Lets every button up that is down.
    void LoseReleases();

signals:
    void CommandDown(int index);
    void CommandUp();
    void PagePicked(const QString& section);

private:
    void AddPageButtons(const QString& name, const std::vector<PageButtonElement>& elements,
                        std::vector<QWidget*>& owner);
    void AddCommandButtons(const std::vector<CommandButtonElement>& elements);
    void AddLabels(const QString& name, const std::vector<LabelElement>& elements, bool onOwnGround,
                   std::vector<QWidget*>& owner);
    void ApplyBackground(const PanelModel& panel);
    void OrderTabs();

    std::vector<QWidget*> permanent; ///< `cmdModeP` and `lblMain`
    std::vector<QWidget*> page;      ///< `cmdMode` and `lblRem`
    std::vector<PanelButton*> commands;
    PanelLine* line = nullptr;
};
