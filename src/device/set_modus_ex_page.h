#pragma once

#include "device/set_modus_ex_controls.h"

#include <QGridLayout>

/// The seven pages of the extended settings, in the order of their tabs, and what they are made of. The
/// controls of a page belong to `controls`.
namespace SetModusExPage {

QWidget* MakeGeneral(SetModusExControls& controls, QWidget* parent);
QWidget* MakeReceive(SetModusExControls& controls, QWidget* parent);
QWidget* MakeCodes(SetModusExControls& controls, QWidget* parent);
QWidget* MakeBus(SetModusExControls& controls, QWidget* parent);
QWidget* MakePower(SetModusExControls& controls, QWidget* parent);
QWidget* MakeRS232(SetModusExControls& controls, QWidget* parent);
/// With the button `cmdStartup`.
QWidget* MakeDisplay(SetModusExControls& controls, QWidget* parent);

/// A frame on a page: boxes one below the other, and titles beside their controls.
class Group {
public:
    Group(SetModusExControls& controls, const QString& name, const QString& caption, QWidget* page);

    QCheckBox* Add(ModusEx::Box box, const QString& caption);
    ComboBox* Add(ModusEx::List list, const QString& titleName, const QString& title,
                  const QStringList& entries);
    TextBox* Add(ModusEx::Text text, const QString& titleName, const QString& title, int maxLength);
    /// A line of its own.
    void AddLine(QWidget* widget);
    /// Behind the control of the last line.
    void AddBeside(QWidget* widget);
    /// In the column of the controls, without a title.
    void AddBelow(QWidget* widget);

    QGroupBox* Frame() const { return frame; }
    QGridLayout* Grid() const { return grid; }

private:
    SetModusExControls& controls;
    QGroupBox* frame;
    QGridLayout* grid;
};

/// An empty page with two columns of the same width.
class Page {
public:
    Page(const QString& name, QWidget* parent);

    void Add(const Group& group, int row, int column);
    /// Over both columns.
    void AddWide(const Group& group, int row);

    QWidget* Frame() const { return frame; }

private:
    QWidget* frame;
    QGridLayout* grid;
};

/// Numbers as the entries of a list, right-aligned with blanks, and the unit behind them.
QStringList RightAligned(std::initializer_list<int> numbers, const QString& unit = {});

} // namespace SetModusExPage
