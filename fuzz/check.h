#pragma once

#include "base/code_page.h"

#include <fuzzer/FuzzedDataProvider.h>

/// Ends the program if a property doesn't hold; the fuzzer then keeps the input.
inline void Check(bool holds) {
    if (!holds)
        __builtin_trap();
}

/// The bytes of a run: numbers come from their end, bytes and texts from their front. So a seed is a stream,
/// a record or a file as it is, with a few bytes behind it.
class Input : public FuzzedDataProvider {
public:
    using FuzzedDataProvider::FuzzedDataProvider;

    int Below(int limit) { return ConsumeIntegralInRange(0, limit - 1); }
    qint32 Word() { return ConsumeIntegral<qint32>(); }

    QByteArray Bytes(size_t most) {
        const auto bytes = ConsumeBytes<char>(most);
        return {bytes.data(), qsizetype(bytes.size())};
    }
    QByteArray Rest() { return Bytes(remaining_bytes()); }

    /// What is left as text: in code page 1252, or as UTF-16 of any kind.
    QString RestText() {
        if (!ConsumeBool())
            return FromCodePage(Rest());
        const QByteArray bytes = Rest();
        QString text(bytes.size() / 2, Qt::Uninitialized);
        std::copy_n(bytes.data(), text.size() * 2, reinterpret_cast<char*>(text.data()));
        return text;
    }
};

/// Whether the second of two equal steps changes nothing any more.
template <class Value, class Step> void CheckSettles(const Value& value, Step step) {
    const Value once = step(value);
    Check(step(once) == once);
}
