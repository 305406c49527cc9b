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
    /// Removes an entry. If it was the selected one, nothing is selected.
    void RemoveEntry(int index);

protected:
    void wheelEvent(QWheelEvent* event) override;
};

/// A list to choose from.
ComboBox* MakeComboBox(const QString& name, const QStringList& entries, QWidget* parent);

/// A list that also takes typed text, which is neither completed nor added to the list.
ComboBox* MakeEditableComboBox(const QString& name, QWidget* parent);
