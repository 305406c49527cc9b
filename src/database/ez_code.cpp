#include "database/ez_code.h"

#include "database/address_texts.h"

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 ShortForm = 0xAB01;
constexpr quint16 LongForm = 0xAB02;
constexpr qsizetype ShortWords = 4;
constexpr qsizetype LongWords = 9;
constexpr qsizetype WordWidth = 6; // two bytes and two blanks

/// The blank behind the last byte, with which a message comes back from a device, may stand or not.
bool HasWords(QStringView text, qsizetype words) {
    return text.size() == words * WordWidth - 1 || text.size() == words * WordWidth;
}

quint16 WordOf(const QString& text) {
    return quint16(NumberWithin(text, 0, 65535));
}

quint8 HexPair(QStringView text) {
    return quint8(text.first(qMin<qsizetype>(2, text.size())).toString().toUShort(nullptr, 16));
}

std::vector<quint16> ShortWordsOf(const EzFields& f) {
    return {ShortForm, quint16(NumberWithin(f.number, 1, 65536) - 1), WordOf(f.value)};
}

std::vector<quint16> LongWordsOf(const EzFields& f) {
    return {LongForm,
            quint16(f.type + 1),
            WordOf(f.houseCode1),
            WordOf(f.houseCode2),
            WordOf(f.address),
            quint16(NumberWithin(f.longValue, 0, 255)),
            WordOf(f.argument),
            quint16(NumberWithin(f.repeat, 1, 65535))};
}

} // namespace

const QStringList& EzTypes() {
    static const QStringList types = {u"FS10"_s, u"FS20"_s,  u"RS200"_s, u"AB400"_s, u"AB601"_s, u"IT"_s,
                                      u"REV"_s,  u"OA-FM"_s, u"KO-FC"_s, u"BS-QU"_s, u"MARMI"_s, u"RS862"_s};
    return types;
}

std::optional<QString> PackEZCode(const EzFields& fields) {
    if (fields.isLong && (fields.type < 0 || fields.type >= EzTypes().size()))
        return {};
    const std::vector<quint16> words = fields.isLong ? LongWordsOf(fields) : ShortWordsOf(fields);
    quint16 sum = 0;
    for (const quint16 word : words)
        sum = EZSum(sum, word);
    QString text = WordToHexText(sum);
    for (const quint16 word : words)
        text += u' ' + WordToHexText(word);
    return text;
}

std::optional<EzFields> UnpackEZCode(QStringView text) {
    const auto word = [text](qsizetype index) { return HexTextToWord(text.sliced(index * WordWidth)); };
    const auto number = [&word](qsizetype index) { return QString::number(word(index)); };
    EzFields fields;
    if (text.size() < 2 * WordWidth)
        return {};
    const QStringView form = text.sliced(WordWidth, 5);
    if (form == WordToHexText(ShortForm) && HasWords(text, ShortWords)) {
        fields.number = QString::number(word(2) + 1);
        fields.value = number(3);
        return fields;
    }
    if (form == WordToHexText(LongForm) && HasWords(text, LongWords) && word(2) <= EzTypes().size()) {
        fields.isLong = true;
        fields.type = word(2) - 1;
        fields.houseCode1 = number(3);
        fields.houseCode2 = number(4);
        fields.address = number(5);
        fields.longValue = number(6);
        fields.argument = number(7);
        fields.repeat = number(8);
        return fields;
    }
    return {};
}

quint16 EZSum(quint16 sum, quint16 word) {
    const auto added = quint16(sum + word);
    return added < word ? quint16(added + 1) : added;
}

QString WordToHexText(quint16 word) {
    return u"%1 %2"_s.arg(word & 255, 2, 16, '0'_L1).arg(word >> 8, 2, 16, '0'_L1).toUpper();
}

quint16 HexTextToWord(QStringView text) {
    const quint8 low = HexPair(text);
    const quint8 high = HexPair(text.sliced(qMin<qsizetype>(3, text.size())));
    return quint16(high << 8 | low);
}
