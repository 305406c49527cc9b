#pragma once

#include "link/session.h"
#include "panel/layout.h"

#include <deque>

/// What happens between the press of a panel button and the records that leave: single sends, the repeats of
/// a held button, commands in a row with their gaps, texts for a serial port, and the check of a page.
///
/// Repeats never run ahead of the server: each goes out on an acknowledgement, and acknowledgements that
/// nobody asked for don't make them pile up. One button is held at a time;
/// the press of another ends the hold of the first.
class PanelSending : public QObject {
    Q_OBJECT

public:
    static constexpr int HoldDelay = 300; ///< milliseconds from the press to the first repeat
    static constexpr int CommandGap =
        500; ///< milliseconds from an acknowledgement to the next command of a row

    PanelSending(Session& session, const PanelModel& panel, QObject* parent);

    /// Button `index` of `cmdRem`, from 1, goes down.
    void Press(int index);
    /// The button is let go, or its release was lost.
    void Release();

    /// Ends the hold and the row of commands. Neither outlives its connection.
    void Stop();

    /// Asks the server about every button of the page in turn. An earlier check is given up.
    void CheckPage();

    int HeldButton() const { return HeldIndex; }

signals:
    /// The server doesn't know what button `index` of `cmdRem` sends.
    void ButtonUnknown(int index);

private:
    void BeginRepeat();
    void TakeAcknowledgement();
    void SendRepeats();
    void TakeCheck(int slot, bool known);
    void AskAbout(int slot);
    void SendMulticommand();
    void EndHold();

    struct Check {
        int slot;
        bool ofThisPage;
        bool isDoubtful = false; ///< an error has come, perhaps in the place of the answer
    };

    Session& session;
    const PanelModel& panel;
    QTimer Timer;
    QTimer timIntercommand;
    QTimer timRepeat;    ///< runs while the last repeats are young
    int repeatsDue = 0;  ///< acknowledged, and not sent yet
    int repeatsLeft = 0; ///< that may go out before timRepeat ends
    int HeldIndex = -1;
    int RepeatIndex = -1;
    qint32 HeldParam = 0;
    QString MultiCommands;
    QString MultiRemote;
    qint32 MultiParam = 0;
    std::deque<Check> checks; ///< questions that the server hasn't answered, in the order of asking
};
