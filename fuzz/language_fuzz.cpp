// The language file: raw bytes, and texts written as the file has them, which must come back.

#include "fuzz/check.h"
#include "language/language.h"

namespace {

QString Field(QString text) {
    return u'"' + text.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8* data, size_t size) {
    const QString missing(1, u'\n'); // no text of a file holds a line end
    const QString content = DecodeFileText(QByteArrayView(data, qsizetype(size)));
    const QStringList parts = content.split(u',');
    Language language;
    if (size % 2 == 0) {
        language.TakeTexts(content);
        for (const QString& part : parts) {
            const QString text = language.GetLanguageText(part.section(u'\n', -1).trimmed(), missing);
            Check(text == missing || (text.size() <= content.size() && !text.contains(u'\n')));
        }
        return 0;
    }
    QHash<QString, QString> texts;
    QString written;
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QString key = QString(parts[i]).remove(u'\n');
        const QString text = QString(parts[i + 1]).remove(u'\n');
        written += Field(key) + u',' + Field(text) + QStringLiteral("\r\n");
        if (!texts.contains(key))
            texts.insert(key, text);
    }
    language.TakeTexts(written);
    for (const auto& [key, text] : texts.asKeyValueRange())
        Check(language.GetLanguageText(key, missing) == text);
    return 0;
}
