#include "device/set_modus_ex_page.h"

#include "forms/localize.h"

namespace SetModusExPage {

namespace {

void AddTitled(QGridLayout* grid, const QString& name, const QString& title, QWidget* control,
               const std::function<void(QLabel*)>& follow) {
    auto* label = MakeLabel(name, title, control->parentWidget(), control);
    if (SplitControlName(name).index >= 0)
        label->setProperty("tag", OwnKeyTag);
    follow(label);
    const int row = grid->rowCount();
    grid->addWidget(label, row, 0);
    // A control of fixed width would hold its column to that width.
    const bool isFixed = control->sizePolicy().horizontalPolicy() == QSizePolicy::Fixed;
    grid->addWidget(control, row, 1, isFixed ? Qt::AlignLeft : Qt::Alignment());
}

} // namespace

Group::Group(SetModusExControls& controls, const QString& name, const QString& caption, QWidget* page)
    : controls(controls)
    , frame(MakeFrame(name, caption, page))
    , grid(new QGridLayout) {
    auto* column = new QVBoxLayout(frame);
    column->addLayout(grid);
    column->addStretch();
    grid->setColumnStretch(1, 1);
}

QCheckBox* Group::Add(ModusEx::Box box, const QString& caption) {
    auto* control = controls.Make(box, caption, frame);
    AddLine(control);
    return control;
}

ComboBox* Group::Add(ModusEx::List list, const QString& titleName, const QString& title,
                     const QStringList& entries) {
    auto* control = controls.Make(list, entries, frame);
    AddTitled(grid, titleName, title, control, [&](QLabel* label) { controls.Follow(label, list); });
    return control;
}

TextBox* Group::Add(ModusEx::Text text, const QString& titleName, const QString& title, int maxLength) {
    auto* control = controls.Make(text, maxLength, frame);
    AddTitled(grid, titleName, title, control, [&](QLabel* label) { controls.Follow(label, text); });
    return control;
}

void Group::AddLine(QWidget* widget) {
    grid->addWidget(widget, grid->rowCount(), 0, 1, std::max(2, grid->columnCount()));
}

void Group::AddBeside(QWidget* widget) {
    grid->addWidget(widget, grid->rowCount() - 1, 2);
}

void Group::AddBelow(QWidget* widget) {
    grid->addWidget(widget, grid->rowCount(), 1);
}

Page::Page(const QString& name, QWidget* parent)
    : frame(new QWidget(parent))
    , grid(nullptr) {
    frame->setObjectName(name);
    auto* column = new QVBoxLayout(frame);
    grid = new QGridLayout;
    column->addLayout(grid);
    column->addStretch();
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
}

void Page::Add(const Group& group, int row, int column) {
    grid->addWidget(group.Frame(), row, column);
}

void Page::AddWide(const Group& group, int row) {
    grid->addWidget(group.Frame(), row, 0, 1, 2);
}

QStringList RightAligned(std::initializer_list<int> numbers, const QString& unit) {
    qsizetype width = 0;
    for (const int number : numbers)
        width = std::max(width, QString::number(number).size());
    QStringList entries;
    for (const int number : numbers)
        entries += QString::number(number).rightJustified(width) + unit;
    return entries;
}

} // namespace SetModusExPage
