#pragma once

#include <QComboBox>

/// A drop-down list. It starts with nothing selected, also when entries are added, and only a choice selects
/// one. The wheel moves it only while it has the focus.
///
/// Entries are added with `addItem(text, data)`.
class ComboBox : public QComboBox {
    Q_OBJECT

public:
    ComboBox(const QString& name, QWidget* parent);

    /// Selects the first entry with this data. False if there is none; then the selection stays.
    bool SelectByData(const QVariant& data);
    /// Replaces the entries by names without data, however many; nothing is selected.
    void SetEntries(const QStringList& entries);
    /// Removes an entry. If it was the selected one, nothing is selected.
    void RemoveEntry(int index);

    /// Makes the box as wide as that many characters, however long its entries are.
    void SetColumns(int columns);

    void showPopup() override;

signals:
    /// An entry was chosen, by hand or by code; by hand also if it was the last choice already.
    void Picked(const QString& entry);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool hasTold = false; ///< the gesture that goes on has changed the choice, and Picked has been emitted
};

/// A drop-down list that also takes typed text, which is neither completed nor added to the list, nor taken
/// for a choice when it is that of an entry. The list opens at the first entry that begins with what stands
/// in the box, and typing finds entries in it; what stands in the box changes only by a choice.
class EditableComboBox : public ComboBox {
    Q_OBJECT

public:
    EditableComboBox(const QString& name, QWidget* parent);

    /// Replaces the entries. What stands in the box stays, and so do its cursor and selection; no entry is
    /// selected.
    void SetEntries(const QStringList& entries);

    void showPopup() override;

signals:
    /// Another text stands in the box: typed, chosen, or set by code.
    void TextChanged(const QString& text);

private:
    bool isRefilling = false;
};

/// A list to choose from.
ComboBox* MakeComboBox(const QString& name, const QStringList& entries, QWidget* parent);

EditableComboBox* MakeEditableComboBox(const QString& name, QWidget* parent);
