#pragma once

#include <QTest>

#include <functional>
#include <memory>

/// A room's tests are several suites, each a class of test slots, in one binary. `SUITE(Class)` at the end of
/// the file that defines one adds it to the binary; `main` runs them all.
class Suites {
public:
    using Maker = std::function<std::unique_ptr<QObject>()>;

    static bool Add(Maker maker);
    static int Run(int argc, char** argv);
};

#define SUITE(Class)                                                                                         \
    [[maybe_unused]] static const bool Class##Added = Suites::Add([] { return std::make_unique<Class>(); })
