#include "link/replies.h"

#include "support/suite.h"

#include <QFile>
#include <QMap>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QString Source = QStringLiteral(SOURCE_FOLDER "/link/");

/// Writes the table of a record as docs/protocol.md has it, but for the meanings.
class TableWriter {
public:
    template <Wire::Integer T> void Constant(const char* name, int offset, T value) {
        Add(name, offset, u"%1 = %2"_s.arg(Integer<T>()).arg(qint64(value)));
    }
    template <Wire::Integer T> void Number(const char* name, int offset, const T&) {
        Add(name, offset, Integer<T>());
    }
    template <Wire::Integer T, size_t N> void Numbers(const char* name, int offset, const std::array<T, N>&) {
        Add(name, offset, u"%1 × %2"_s.arg(N).arg(Integer<T>()));
    }
    void Text(const char* name, int offset, int width, Wire::TextForm form, const QString&) {
        Add(name, offset, TextOf(width, form));
    }
    template <size_t N>
    void Texts(const char* name, int offset, int width, Wire::TextForm form, const std::array<QString, N>&) {
        Add(name, offset, u"%1 × %2"_s.arg(N).arg(TextOf(width, form)));
    }
    void Raw(const char* name, int offset, int width, char fill, const QByteArray&) {
        Add(name, offset, u"%1 bytes, %2"_s.arg(width).arg(fill == ' ' ? u"blanks"_s : u"NULs"_s));
    }

    QString rows;

private:
    template <class T> static QString Integer() {
        if constexpr (std::is_enum_v<T>)
            return Integer<std::underlying_type_t<T>>();
        else
            return (std::is_signed_v<T> ? u"i"_s : u"u"_s) + QString::number(sizeof(T) * 8);
    }
    static QString TextOf(int width, Wire::TextForm form) {
        static const QStringList forms = {u"trimmed"_s, u"with NUL"_s, u"blanks"_s, u"NULs"_s};
        return u"text %1, %2"_s.arg(width).arg(forms[int(form)]);
    }
    void Add(const char* name, int offset, const QString& form) {
        rows += u"| %1 | %2 | %3 |\n"_s.arg(offset).arg(QLatin1StringView(name), form);
    }
};

using Tables = QMap<QString, QString>;

template <class... Records> Tables TablesOf() {
    Tables tables;
    const auto add = [&tables]<class Record>(Record record) {
        TableWriter writer;
        Record::Layout(writer, record);
        tables[u"%1: %2 bytes"_s.arg(QLatin1StringView(Record::Name)).arg(Record::Size)] = writer.rows;
    };
    (add(Records()), ...);
    return tables;
}

QString ReadFile(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

} // namespace

/// docs/protocol.md says of every record, netcommand and reply type what the code says.
class ProtocolDocumentTest : public QObject {
    Q_OBJECT

private slots:
    void EveryRecordStandsInTheDocument() {
        static const QRegularExpression part(
            u"(?m)^### (\\w+: \\d+ bytes)$|^(\\| \\d+ \\|[^|]*\\|[^|]*\\|)"_s);
        Tables found;
        QString title;
        for (const auto& match : part.globalMatch(document.section(u"## The records"_s, 1))) {
            if (match.hasCaptured(1))
                title = match.captured(1);
            else
                found[title] += match.captured(2) + u'\n';
        }
        const auto expected =
            TablesOf<CommandRequest, ModeRequest, LcdRequest, SerialRequest, CodeRequest, TranslatorRequest,
                     IRDBGlobalRecord, IRDBElementRecord, ReplyHeader, ResultReply, LearnedDataReply,
                     ReceivedReply, LearnStateReply, ServerInfoReply, IRDBStatusRecord, AnalogValues,
                     AnalogTemperatures, StatusHead, DeviceEntry, PageHead, NameElement, CommandElement,
                     BusElement>();
        for (const QString& record : expected.keys())
            QCOMPARE(record + u'\n' + found.value(record), record + u'\n' + expected[record]);
        QCOMPARE(found.keys(), expected.keys());
        QCOMPARE(source.count(u"const char* Name ="_s), expected.size());
    }

    void EveryNumberStandsInTheDocument() {
        static const QRegularExpression enumerator(u"(?m)^    (\\w+) = (\\d+),"_s);
        const QString values = source.section(u"class Netcommand"_s, 1).section(u'}', 0, 0) +
                               source.section(u"class ReplyType"_s, 1).section(u'}', 0, 0);
        int count = 0;
        for (const auto& match : enumerator.globalMatch(values)) {
            ++count;
            const QString row = u"| %1 | %2 |"_s.arg(match.captured(2), match.captured(1));
            QVERIFY2(document.contains(row), qPrintable(row));
        }
        QVERIFY(count > 40);
    }

private:
    const QString source = ReadFile(Source + u"requests.h"_s) + ReadFile(Source + u"replies.h"_s);
    const QString document = ReadFile(Source + u"../../docs/protocol.md"_s);
};

SUITE(ProtocolDocumentTest);

#include "protocol_document_test.moc"
