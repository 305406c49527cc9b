#pragma once

#include <QString>

#include <array>

/// What stands in the four boxes of an IP address and in the box of a port. What reads as no number is 0.
struct AddressTexts {
    std::array<QString, 4> ip;
    QString port;

    /// The numbers, limited to a byte each and to 16 bits.
    qint32 IpNumber() const;
    quint16 PortNumber() const;

    /// Shows numbers without leading zeros. An address or port of 0 leaves its boxes as they are.
    void Show(qint32 ipNumber, quint16 portNumber);

    /// A number beyond its field becomes the nearest that fits, so that the user sees it.
    void Limit();
    void LimitPort();

    bool operator==(const AddressTexts&) const = default;
};

/// The number at the start of `text`, rounded, as the nearest between `least` and `most`.
qint32 NumberWithin(QStringView text, qint32 least, qint32 most);

/// If the number in `text` lies beyond `least` or `most`, the text becomes that limit; else it stays.
void LimitText(QString& text, qint32 least, qint32 most);
