#include "link/wire.h"

#include "base/blanks.h"
#include "base/code_page.h"

#include <algorithm>

void Wire::PutText(std::span<char> field, TextForm form, QStringView text) {
    const QByteArray bytes = ToCodePage(form == TextForm::Trimmed ? WithoutBlanks(text) : text);
    const auto used = std::min<size_t>(bytes.size(), field.size());
    std::copy_n(bytes.begin(), used, field.begin());
    std::fill(field.begin() + used, field.end(), form == TextForm::Zeroed ? '\0' : ' ');
    if (used < field.size() && form != TextForm::Plain)
        field[used] = '\0';
}

QString Wire::GetText(std::span<const char> field) {
    const auto length = std::find(field.begin(), field.end(), '\0') - field.begin();
    return FromCodePage({field.data(), length});
}

void RecordEncoder::Raw(const char*, int offset, int width, char fill, const QByteArray& raw) {
    const auto field = bytes.subspan(offset, width);
    const auto used = std::min<size_t>(raw.size(), field.size());
    std::copy_n(raw.begin(), used, field.begin());
    std::fill(field.begin() + used, field.end(), fill);
}
