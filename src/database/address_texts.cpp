#include "database/address_texts.h"

#include "base/number.h"

#include <algorithm>
#include <cmath>

qint32 AddressTexts::IpNumber() const {
    quint32 number = 0;
    for (const QString& text : ip)
        number = number << 8 | quint32(NumberWithin(text, 0, 255));
    return qint32(number);
}

quint16 AddressTexts::PortNumber() const {
    return quint16(NumberWithin(port, 0, 65535));
}

void AddressTexts::Show(qint32 ipNumber, quint16 portNumber) {
    if (ipNumber != 0)
        for (size_t i = 0; i < ip.size(); ++i)
            ip[i] = QString::number(quint32(ipNumber) >> (24 - 8 * i) & 255);
    if (portNumber != 0)
        port = QString::number(portNumber);
}

void AddressTexts::Limit() {
    for (QString& text : ip)
        LimitText(text, 0, 255);
    LimitPort();
}

void AddressTexts::LimitPort() {
    LimitText(port, 0, 65535);
}

qint32 NumberWithin(QStringView text, qint32 least, qint32 most) {
    return qint32(std::nearbyint(std::clamp(LeadingNumber(text), double(least), double(most))));
}

void LimitText(QString& text, qint32 least, qint32 most) {
    const double number = LeadingNumber(text);
    if (number < least || number > most)
        text = QString::number(number < least ? least : most);
}
