#pragma once

#include "database/action_rules.h"

#include <QRandomGenerator>

/// Random tags of a database.
class Dice {
public:
    int Roll(int sides) { return int(random.bounded(sides)); }
    bool Coin() { return Roll(2) == 0; }

    ActionTarget Target() {
        const qint32 ip = Coin() ? qint32(random.generate()) : 0;
        return {ip, quint16(Coin() ? Roll(65536) : 0), Coin(), Coin(), Coin(), Coin()};
    }
    /// Of all characters that a record can bring, control characters among them, or of some of these; not
    /// empty, as binary data of no bytes come back as a NUL.
    QString Text(int most, int first = 1, int end = 256) {
        QString text(1 + Roll(most), u' ');
        for (QChar& c : text)
            c = QChar(random.bounded(first, end));
        return text;
    }
    QString ActionTagOf(int first, int end) {
        ActionTag tag{Roll(4), ActionDialog::RelayFunctions[Roll(6)], {}};
        for (ActionGroup& group : tag.groups) {
            group = {Target(), Coin(), Text(255, first, end)};
            if (group.binary)
                group.text = BinaryToHex(group.text.toLatin1());
        }
        tag.groups[size_t(Roll(8))].target.isDefault = false; // so that something is set
        return tag.Format();
    }

private:
    QRandomGenerator random{7};
};
