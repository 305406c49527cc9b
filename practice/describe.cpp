#include "practice/describe.h"

#include "base/code_page.h"
#include "link/send_param.h"

using namespace Qt::StringLiterals;

namespace {

QString DescribeLed(quint32 param) {
    const quint32 low = (param & SendParam::LedLowBits) >> SendParam::LedLowShift;
    const quint32 high = (param & SendParam::LedExtendedBits) >> SendParam::LedExtendedShift;
    if (param & SendParam::UseLedExtended)
        return u"LED output %1"_s.arg(low * 8 + high + 1);
    static constexpr std::array names = {"default"_L1, "internal"_L1, "external"_L1, "all"_L1};
    const QString odd = high ? u" (bits 27 to 29 hold %1, but bit 31 is clear)"_s.arg(high) : QString();
    return u"LED %1%2"_s.arg(names[low], odd);
}

QByteArrayView WithoutFill(QByteArrayView raw, char fill) {
    while (raw.endsWith(fill))
        raw.chop(1);
    return raw;
}

} // namespace

QString DescribeSendParam(qint32 param) {
    using namespace SendParam;
    const auto bits = quint32(param);
    const quint32 bus = (bits & BusBits) >> BusShift;
    const bool honoured = bits & UseMaskAndBus;
    const bool everywhere = bits & AllBuses;

    QString where = everywhere ? u"all buses"_s : honoured ? u"bus %1"_s.arg(bus) : u"any bus"_s;
    if (bus != 0 && (everywhere || !honoured))
        where += u" (bus %1 is named in vain)"_s.arg(bus);

    const QString digits = QString::number(bits & MaskBits, 16).rightJustified(4, u'0').toUpper();
    QString mask = honoured ? u"mask "_s + digits : u"no mask"_s;
    if (!honoured && bits & MaskBits)
        mask += u" (%1 is named in vain)"_s.arg(digits);

    return where + u", "_s + mask + u", "_s + DescribeLed(bits);
}

QString Quoted(QStringView text) {
    QString quoted = u"\""_s;
    for (QChar c : text) {
        if (c < u' ')
            quoted += u"\\x%1"_s.arg(c.unicode(), 2, 16, QChar(u'0'));
        else
            quoted += c;
    }
    return quoted + u'"';
}

void RecordDescriber::Text(const char* name, int, int, Wire::TextForm, const QString& text) {
    if (!text.isEmpty())
        Add(name, Quoted(text));
}

void RecordDescriber::Raw(const char* name, int, int, char fill, const QByteArray& raw) {
    const QByteArrayView used = WithoutFill(raw, fill);
    if (!used.isEmpty())
        Add(name, Quoted(FromCodePage(used)));
}

void RecordDescriber::Add(const char* name, const QString& value) {
    words.append(QLatin1StringView(name) + u' ' + value);
}

void FieldLister::Text(const char* name, int, int, Wire::TextForm, const QString& text) {
    Add(name, Quoted(text));
}

void FieldLister::Raw(const char* name, int, int, char fill, const QByteArray& raw) {
    Add(name, Quoted(FromCodePage(WithoutFill(raw, fill))));
}

void FieldLister::Add(const char* name, const QString& value) {
    fields.push_back({QString::fromLatin1(name), value});
}
