#pragma once

#include "ratio.h"

#include "forms/form.h"

#include <QCoreApplication>

/// What forms need, in English; no server is there.
struct EnglishServices {
    EnglishServices() {
        if (!language.OpenTranslationFile(QStringLiteral(DATA_FOLDER), QStringLiteral("English")))
            qFatal("no language file");
    }

    Session session;
    Language language;
    Boxes boxes{language};
    FormServices services{session, language, boxes};
};

/// From the constructor to the form painted. It is gone again before the next turn.
template <class Make> double TimeToOpen(Make&& make) {
    Form* form = nullptr;
    const double time = TimeOf([&] {
        form = make();
        form->ShowModal();
        form->grab();
    });
    delete form;
    QCoreApplication::processEvents();
    return time;
}

/// Times the opening of the form that `make` makes from FormServices, against an empty form.
template <class Make> void CompareOpening(benchmark::State& state, Make&& make) {
    EnglishServices english;
    CompareInTurns(
        state, [&] { return TimeToOpen([&] { return make(english.services); }); },
        [&] {
            return TimeToOpen([&] {
                return new Form(english.services, QStringLiteral("frmEmpty"), QStringLiteral("Empty"),
                                nullptr);
            });
        });
    state.counters["of_50_ms"] = state.counters["ours_us"] / 50'000;
}
