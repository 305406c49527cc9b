#include "practice/database_memory.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

// Words that a record takes besides its text or data.
constexpr int SettingsWords = 64;
constexpr int RemoteWords = 24;
constexpr int CommandWords = 12;
constexpr int ActionWords = 6;

// Bytes that the client takes for too many, one or two below what the memory holds.
constexpr int SmallLimit = 65535;
constexpr int LargeLimit = 131070;

int WordsOf(int bytes) {
    return (bytes + 1) / 2;
}

} // namespace

bool DatabaseMemory::Fits() const {
    return qint64(words) * 2 <= (large ? LargeLimit : SmallLimit);
}

IRDBStatusRecord DatabaseMemory::Status() const {
    return {QString::number(words), large ? u"128K"_s : u"64K"_s, QString::number(remotes),
            QString::number(commands), QString::number(actions)};
}

QString DatabaseMemory::Words() const {
    return u"%1 words of %2, remotes %3, commands %4, actions %5"_s.arg(words)
        .arg(large ? "128K"_L1 : "64K"_L1)
        .arg(remotes)
        .arg(commands)
        .arg(actions);
}

DatabaseMemory MeasureDatabase(const RecordSet& set) {
    DatabaseMemory memory;
    memory.words = SettingsWords;
    for (const QByteArray& bytes : set.elements) {
        const auto element = Decode<IRDBElementRecord>(bytes);
        if (element.IsRemote()) {
            ++memory.remotes;
            memory.words += RemoteWords + WordsOf(int(element.action.indexOf('\0')));
            continue;
        }
        if (element.ElementKind == IRDBElementRecord::FirstAction) {
            ++memory.commands;
            memory.words += CommandWords;
        }
        if (element.dataLength > 0) {
            ++memory.actions;
            memory.words += ActionWords + WordsOf(element.dataLength);
        }
    }
    return memory;
}
