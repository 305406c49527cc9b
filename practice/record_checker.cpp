#include "practice/record_checker.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString Hex(char byte) {
    return u"0x%1"_s.arg(quint8(byte), 2, 16, QChar(u'0'));
}

QString Named(char byte) {
    return byte == ' ' ? u"a blank"_s : u"a NUL"_s;
}

} // namespace

RecordChecker::RecordChecker(const char* record, QByteArrayView bytes, int used, bool flagByte)
    : record(record)
    , bytes(bytes)
    , used(used)
    , flagByte(flagByte)
    , covered(bytes.size()) {}

void RecordChecker::Text(const char* name, int offset, int width, Wire::TextForm form, const QString&) {
    const QLatin1StringView field(name);
    // A flag byte of 0 looks like two NULs, which no text does.
    if (flagByte && field == "remote"_L1 && bytes[offset + 1] == '\0') {
        Cover(offset, width);
        CheckFill(field, offset, 2, width, ' ', u" behind the flag byte and its NUL"_s);
        return;
    }
    CheckText(field, offset, width, form);
}

void RecordChecker::Raw(const char* name, int offset, int width, char fill, const QByteArray&) {
    Cover(offset, width);
    CheckFill(QLatin1StringView(name), offset, std::clamp(used, 0, width), width, fill,
              u" behind the %1 in use"_s.arg(used));
}

QStringList RecordChecker::Finish() {
    for (qsizetype i = 0; i < bytes.size(); ++i) {
        if (!covered[i] && bytes[i] != '\0')
            faults.append(
                u"%1: byte %2 is %3, but belongs to no field: 0 was expected"_s.arg(record).arg(i).arg(
                    Hex(bytes[i])));
    }
    return faults;
}

void RecordChecker::Cover(int offset, int width) {
    for (int i = offset; i < offset + width; ++i) {
        Q_ASSERT(!covered[i]);
        covered[i] = true;
    }
}

void RecordChecker::CheckText(const QString& name, int offset, int width, Wire::TextForm form) {
    Cover(offset, width);
    const QByteArrayView field = bytes.sliced(offset, width);
    const auto length = field.contains('\0') ? field.indexOf('\0') : width;
    const bool hasNul = length < width;
    if (form == Wire::TextForm::Plain) {
        if (hasNul)
            Add(name, offset, u"byte %1 is a NUL, but this form has none"_s.arg(offset + length));
        return;
    }
    if (form == Wire::TextForm::Zeroed)
        return CheckFill(name, offset, length, width, '\0', u" behind the NUL"_s);
    if (form == Wire::TextForm::Trimmed && length > 0 && field[0] == ' ')
        return Add(name, offset, u"the text begins with a blank"_s);
    if (!hasNul) {
        // A text that fills its field has no NUL, and a cut may even leave one blank at its end.
        if (field.endsWith("  "))
            Add(name, offset, u"no NUL ends the text"_s);
        return;
    }
    if (form == Wire::TextForm::Trimmed && length > 0 && field[length - 1] == ' ')
        return Add(name, offset, u"the text ends with a blank"_s);
    CheckFill(name, offset, length + 1, width, ' ', u" behind the NUL"_s);
}

void RecordChecker::CheckFill(const QString& name, int offset, int from, int width, char fill,
                              const QString& where) {
    for (int i = offset + from; i < offset + width; ++i) {
        if (bytes[i] != fill) {
            const QString found = Hex(bytes[i]);
            return Add(name, offset,
                       u"byte %1 is %2%3, %4 was expected"_s.arg(i).arg(found, where, Named(fill)));
        }
    }
}

void RecordChecker::Add(const QString& field, int offset, const QString& fault) {
    faults.append(u"%1: field \"%2\" (offset %3): %4"_s.arg(record).arg(field).arg(offset).arg(fault));
}

int UsedBytes(const SerialRequest& request) {
    return request.length;
}

int UsedBytes(const IRDBElementRecord& element) {
    if (!element.IsRemote())
        return element.dataLength;
    // The text of a remote has a NUL and no length.
    return int(element.action.indexOf('\0')) + 1;
}

QStringList ValueFaults(const CommandRequest& request) {
    if (request.timeout >= 0 && request.timeout <= 30000)
        return {};
    return {u"CommandRequest: field \"timeout\" (offset 2): %1 is not in 0 to 30000"_s.arg(request.timeout)};
}

QStringList ValueFaults(const IRDBElementRecord& element) {
    if (element.IsRemote() && element.dataLength != 0)
        return {u"IRDBElementRecord: field \"dataLength\" (offset 19): %1 in the element of a remote, 0 was "
                "expected"_s.arg(element.dataLength)};
    if (!element.IsRemote() && !element.IsAction())
        return {u"IRDBElementRecord: field \"ElementKind\" (offset 17): %1 is neither 8 nor 10 to 17"_s.arg(
            element.ElementKind)};
    return {};
}
