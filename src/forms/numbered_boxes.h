#pragma once

#include <QLabel>
#include <QPointer>
#include <QWidget>

#include <vector>

/// A row of boxes that one label names. A screen reader says that label's text and the box's own number.
class NumberedBoxes : public QWidget {
    Q_OBJECT

protected:
    /// `title` may be null; then the boxes have their numbers alone.
    NumberedBoxes(const QLabel* title, QWidget* parent);

    /// To be called for each box; `number` is the one that is said.
    void AddBox(QWidget* box, int number);

    /// The label's text is that of the language in force only when the form is shown.
    void showEvent(QShowEvent* event) override;

private:
    struct Numbered {
        QWidget* box;
        int number;
    };

    QPointer<const QLabel> title;
    std::vector<Numbered> numbered;
};
