#pragma once

#include "database/settings.h"
#include "forms/combo_boxes.h"
#include "forms/text_boxes.h"

#include <QGroupBox>
#include <QRadioButton>

/// One analog input of a device: when it triggers, and what it sends then.
class AnalogInputPage : public QGroupBox {
    Q_OBJECT

public:
    /// `index` from 0 to 3 is that of all controls.
    AnalogInputPage(int index, QWidget* parent);

    /// To be called once, when the texts are those of the language: puts the input's number behind the
    /// caption, and names the controls that share a label.
    void FinishTexts();

    /// Fills the lists of remotes. One that was to be selected and wasn't there yet is selected now.
    void FillRemotes(const QStringList& names);

    AnalogSettings Values() const;
    /// Shows values in an order in which the rules of the mode work. A remote that the list lacks leaves the
    /// selection as it is until the list has it.
    void Show(const AnalogSettings& values);

    /// Enables and empties what the mode says; `cmbModus_Click`.
    void ApplyMode();

private:
    /// The controls of one end of the range.
    struct Side {
        QLabel* thresholdLabel;
        TextBox* threshold;
        QLabel* remoteLabel;
        ComboBox* remote;
        TextBox* command;
        ComboBox* led;
        TextBox* mask;
        QString wanted; ///< the remote that was to be selected and isn't in the list
    };

    Side MakeSide(const QString& side, const QString& threshold, const QString& remote);
    void LayOut(QWidget* modeLabel);
    static AnalogSide Values(const Side& side);
    static void Show(Side& side, const AnalogSide& values, const QString& threshold);
    static void SelectRemote(Side& side, const QString& name);
    static void Enable(Side& side, bool hasThreshold, bool sends, bool hasLed, bool isCleared);

    int index;
    ComboBox* cmbModus;
    Side min;
    Side max;
    QLabel* hysteresisLabel;
    TextBox* txtHys;
    QLabel* ledLabel;
    QRadioButton* optSend;
    QRadioButton* optAction;
};
