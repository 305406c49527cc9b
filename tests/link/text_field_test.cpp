#include "link/wire.h"

#include "support/golden.h"
#include "support/suite.h"

using Golden::Ascii;
using Golden::Hex;
using Wire::TextForm;
using namespace Qt::StringLiterals;

namespace {

/// `text` in a field of `width`, between two guards that must survive.
QByteArray Field(int width, TextForm form, const QString& text) {
    QByteArray bytes(width + 2, '#');
    Wire::PutText(std::span(bytes.data() + 1, size_t(width)), form, text);
    return bytes;
}

struct RawRecord {
    static constexpr int Size = 8;
    QByteArray raw;

    template <class Fields, class Record> static void Layout(Fields& fields, Record& r) {
        fields.Raw("raw", 1, 6, '.', r.raw);
    }
};

} // namespace

class TextFieldTest : public QObject {
    Q_OBJECT

private slots:
    void Forms() {
        // Fields of eight bytes: trimmed, plain with a NUL, plain, zeroed. "0" is a NUL, "_" a blank.
        const std::pair<QString, QByteArray> rows[] = {
            {u""_s, "0_______ 0_______ ________ 00000000"},
            {u"   "_s, "0_______ ___0____ ________ ___00000"},
            {u" t v  "_s, "t_v0____ _t_v__0_ _t_v____ _t_v__00"},
            {u"tv\t"_s, "tv\t0____ tv\t0____ tv\t_____ tv\t00000"},
            {u"abcdefg"_s, "abcdefg0 abcdefg0 abcdefg_ abcdefg0"},
            {u"abcdefgh"_s, "abcdefgh abcdefgh abcdefgh abcdefgh"},
            {u"abcdefghi"_s, "abcdefgh abcdefgh abcdefgh abcdefgh"},
            {u"  abcdefgh"_s, "abcdefgh __abcdef __abcdef __abcdef"},
            {u"abcdefg hi"_s, "abcdefg_ abcdefg_ abcdefg_ abcdefg_"},
            {u"aĀ😀€z"_s, "a??\x80z0__ a??\x80z0__ a??\x80z___ a??\x80z000"},
            {u"a\0b"_s, "a0b0____ a0b0____ a0b_____ a0b00000"},
        };
        for (const auto& [text, pictures] : rows) {
            QByteArrayList fields;
            for (const auto form :
                 {TextForm::Trimmed, TextForm::PlainNul, TextForm::Plain, TextForm::Zeroed}) {
                const QByteArray field = Field(8, form, text);
                QVERIFY(field.startsWith('#') && field.endsWith('#'));
                fields += field.sliced(1, 8).replace('\0', '0').replace(' ', '_');
            }
            QCOMPARE(fields.join(' '), pictures);
        }
    }

    void IncomingTextEndsAtTheFirstNul() {
        const std::pair<QByteArray, QString> cases[] = {
            {Hex("00") + Ascii("left"), u""_s},
            {Ascii("tv") + Hex("00") + Ascii("mer") + Hex("00"), u"tv"_s},
            {Ascii("b\xE4mer"), u"bämer"_s},
            {Ascii(" tv ") + Hex("00 20"), u" tv "_s},
            {QByteArray(), u""_s}};
        for (const auto& [field, text] : cases)
            QCOMPARE(Wire::GetText(std::span<const char>(field.constData(), size_t(field.size()))), text);
    }

    void RawKeepsNuls() {
        QCOMPARE(Encode(RawRecord{Hex("00 FF 00")}), Hex("00 00 FF 00 2E 2E 2E 00"));
        QCOMPARE(Encode(RawRecord{Hex("01 02 03 04 05 06 07")}), Hex("00 01 02 03 04 05 06 00"));
        QCOMPARE(Decode<RawRecord>(Hex("11 00 FF 00 20 00 00 11")).raw, Hex("00 FF 00 20 00 00"));
    }
};

SUITE(TextFieldTest);

#include "text_field_test.moc"
