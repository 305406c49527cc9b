#pragma once

#include "learn/frmCCF.h"
#include "learn/learn_form_view.h"

#include <QTimer>

/// Teaches commands: the user picks the device that listens, opens a remote at the server, and has one
/// command after the other learned into it. The server keeps what was learned.
class frmProgramm : public LearnFormView {
    Q_OBJECT

public:
    frmProgramm(const FormServices& services, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void Connect();

    /// Runs EnableLearn over the state and shows it.
    void RunEnableLearn();

    // What the server says.
    void AskServer();
    void FillBusCombo();
    void FillRemoteCombo();
    void TakeLearnState(const LearnStateReply& state);
    void EndWait();

    // What the user does.
    void ChooseBusEntry(int index);
    void OpenRemote();
    void LearnTiming();
    void LearnCommand();
    void EnterCode(frmCCF::Face face);
    void CloseRemote();

    /// Takes the carrier from its box. False, after a message, if it isn't one.
    bool TakeCarrier();
    bool SendLearn(Pending pending, Netcommand netcommand, quint8 flags, const QString& command, qint32 param,
                   const QString& promptText);
    quint8 ChosenAddress() const;
    void TickProgress();
    void EnableOpening();
    void UpdateCommandButtons();
    void AskState();

    std::vector<BusElement> buses; ///< as cmbBus shows them; the session's list may be half of the next one
    BusElement SelectedBus;
    QTimer* Timer = nullptr;
    QTimer* Timer1 = nullptr;
};
