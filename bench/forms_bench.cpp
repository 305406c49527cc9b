#include "ratio.h"

#include "forms/controls.h"
#include "forms/form.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int Texts = 200;

class ManyTexts : public Form {
public:
    explicit ManyTexts(const FormServices& services)
        : Form(services, u"frmMany"_s, u"Viele Texte"_s, nullptr) {
        auto* column = new QVBoxLayout(this);
        for (int i = 0; i < Texts; ++i)
            column->addWidget(MakeLabel(u"lbl%1"_s.arg(i), u"Text %1"_s.arg(i), this));
        Localize();
    }
};

/// A language file of `lines` lines, the form's own keys at its end.
void WriteLanguage(const QString& path, int lines) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        qFatal("no temporary file");
    for (int i = 0; i < lines; ++i)
        file.write(i < lines - Texts
                       ? "\"frmOther.lbl" + QByteArray::number(i) + "\",\"Something else\"\n"
                       : "\"frmMany.lbl" + QByteArray::number(lines - 1 - i) + "\",\"A text\"\n");
}

/// A form of 200 texts with a language file of 10,000 lines, against the same with one of 100 lines.
void LoadForm(benchmark::State& state) {
    QTemporaryDir folder;
    WriteLanguage(folder.filePath(u"Long.tra"_s), 10'000);
    WriteLanguage(folder.filePath(u"Short.tra"_s), 100);
    Session session;
    Language longFile;
    Language shortFile;
    if (!longFile.OpenTranslationFile(folder.path(), u"Long"_s) ||
        !shortFile.OpenTranslationFile(folder.path(), u"Short"_s))
        qFatal("no language file");
    Boxes boxes(longFile);
    const auto load = [&](const Language& language) {
        return TimeOf([&] { ManyTexts form({session, language, boxes}); });
    };
    CompareInTurns(
        state, [&] { return load(longFile); }, [&] { return load(shortFile); });
    state.counters["of_5_ms"] = state.counters["ours_us"] / 5000;
}

void OpenLanguageFile(benchmark::State& state) {
    QTemporaryDir folder;
    WriteLanguage(folder.filePath(u"Long.tra"_s), 10'000);
    for (auto _ : state) {
        Language language;
        benchmark::DoNotOptimize(language.OpenTranslationFile(folder.path(), u"Long"_s));
    }
}

} // namespace

BENCHMARK(LoadForm)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(OpenLanguageFile)->Unit(benchmark::kMillisecond);
