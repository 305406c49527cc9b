#pragma once

#include "language/language.h"
#include "panel/layout.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

/// The menu bar of the main window. Entries bear their control names, such as `mnuModus(11)`.
class PanelMenu : public QObject {
    Q_OBJECT

public:
    /// Builds the bar with the built-in captions.
    explicit PanelMenu(QMainWindow* window);

    /// Gives the entries back that a refused connection took, or takes them.
    void SetLinked(bool linked);

    /// Adds the entries of the pages of MAIN and applies what the layout hides or disables.
    void ShowPermanent(const PanelModel& panel, const Language& language);

signals:
    /// An entry was chosen that is no page: its control name.
    void Picked(const QString& name);
    void PagePicked(const QString& section);

private:
    QMenu* AddTop(const QString& name, const QString& caption);
    QAction* AddEntry(QMenu* menu, const QString& name, const QString& caption);
    void AddTopAction(const QString& name, const QString& caption);
    QAction* Action(const char* name) const;
    void ApplySwitches();
    void ApplyBrand(const Language& language);

    QMainWindow* window;
    QMenu* pages;
    bool isLinked = true;
    MenuSwitch modus;
    MenuSwitch send;
    MenuSwitch remote;
    MenuSwitch about;
    bool isBrand = false;
};
