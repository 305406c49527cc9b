// Texts that people or servers wrote: numbers, addresses, hexadecimal and packed codes, typed codes, page
// files, dragged commands.

#include "base/address_text.h"
#include "base/blanks.h"
#include "base/number.h"
#include "database/action_rules.h"
#include "fuzz/check.h"
#include "learn/code_entry_rules.h"
#include "learn/learn_rules.h"
#include "tools/text_replies.h"
#include "translator/translator_editing_rules.h"

#include <cmath>

namespace {

void TryNumbers(const QString& text, qint32 least, qint32 most) {
    const double leading = LeadingNumber(text);
    if (const auto whole = WholeNumber(text))
        Check(*whole == leading);
    if (const auto integer = WholeInteger<qint16>(text))
        Check(*integer == std::nearbyint(leading) && WholeInteger<qint32>(text) == *integer);
    const qint32 within = NumberWithin(text, least, most);
    Check(within >= least && within <= most);
    QString limited = text;
    LimitText(limited, least, most);
    Check(NumberWithin(limited, least, most) == within);
    const qint16 wait = WaitTime(text);
    Check(wait >= 0 && wait <= LongestWait);
    CarrierOf(text);
    LearnAddress(1, text);
}

void TryAddresses(const QString& text) {
    const qint32 ip = TextToIP(text);
    Check(IPToText(ip).size() == 12 && TextToIP(IPToText(ip)) == ip);
    const qint16 port = TextToPort(text);
    Check(PortToText(port).size() == 5 && TextToPort(PortToText(port)) == port);
    const auto mac = TextToMac(text);
    Check(TextToMac(QString::fromLatin1(
              QByteArray(reinterpret_cast<const char*>(mac.data()), 6).toHex('-'))) == mac);
    AddressTexts address;
    address.Show(ip, quint16(port));
    Check(address.IpNumber() == ip && address.PortNumber() == quint16(port));
}

void TryCodes(const QString& text) {
    const QByteArray bytes = HexToBinary(text);
    Check(bytes.size() <= text.size() + 1);
    if (!bytes.isEmpty())
        Check(HexToBinary(BinaryToHex(bytes)) == bytes);
    Check(ActionDialog::IsBinaryText(BinaryToHex(bytes)) == (bytes.size() <= ActionDialog::TextMax));
    if (const auto fields = UnpackEZCode(text))
        if (const auto packed = PackEZCode(*fields)) {
            const auto again = UnpackEZCode(*packed);
            Check(again && again->isLong == fields->isLong && again->type == fields->type);
            Check(PackEZCode(*again) == packed);
        }
    const QString wire = CodeEntry::ToWireText(text);
    Check(CodeEntry::ToWireText(wire) == wire);
    Check(CodeEntry::LengthOf(text) == ToCodePage(wire).size());
}

void TryNames(const QString& text) {
    const QByteArray page = ToCodePage(text);
    Check(page.size() <= text.size() && ToCodePage(FromCodePage(page)) == page);
    // A name in the tree is the one that a stored set brings back.
    TranslatorRequest element;
    element.remote = text;
    Check(AsStoredName(text) == WithoutBlanks(Decode<TranslatorRequest>(Encode(element)).remote));
    if (const auto dropped = DecodeDrag(page.leftJustified(100, ' ', true)))
        Check(DecodeDrag(EncodeDrag(*dropped))->remote == dropped->remote);

    const PageProtocol::Reply reply = PageProtocol::Parse(text);
    Check(reply.kind != PageProtocol::Reply::Kind::Other || reply.rest.isEmpty());
    QString list;
    const auto files = PageProtocol::ParseFiles(text);
    for (const PageProtocol::PageFile& file : files)
        list += file.name + u';' + file.length + u';' + file.date + u';';
    Check(PageProtocol::ParseFiles(list) == files);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    Input input(data, size);
    const auto [least, most] = std::minmax({input.Word(), input.Word()});
    const int kind = input.Below(4);
    const QString text = input.RestText();
    switch (kind) {
    case 0: TryNumbers(text, least, most); break;
    case 1: TryAddresses(text); break;
    case 2: TryCodes(text); break;
    default: TryNames(text); break;
    }
    return 0;
}
