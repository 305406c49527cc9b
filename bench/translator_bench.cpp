#include "ratio.h"

#include "forms/keyed_tree_view.h"
#include "link/replies.h"
#include "translator/frmTranslator.h"
#include "translator/translator_elements.h"

#include <QApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr int PerPage = ElementsPerPage<TranslatorRequest>;

/// The pages of the largest set: a root, 40 remotes with a group each, and macros of eleven steps in these.
std::vector<QByteArray> Pages() {
    KeyedTree tree;
    ResetTranslatorTree(tree);
    for (int i = 0; tree.Count() < TranslatorLimits::Elements; ++i) {
        const QString remote = u"Wohnzimmer Gerät %1"_s.arg(i % TranslatorLimits::Remotes);
        const QString group =
            TranslatorNodeKey(TranslatorKind::Group, RemoteKey(remote), remote, u"Gruppe"_s);
        if (AddNode(tree, MakeRemote({.name = remote})))
            AddNode(tree, MakeGroup(RemoteKey(remote), {remote, u"Gruppe"_s}));
        const CommandTag macro{remote, QString::number(i), TranslatorType::Macro};
        const TranslatorNode node = MakeReceived(TranslatorKind::Macro, group, macro);
        AddNode(tree, node);
        for (int step = 0; step < 11 && tree.Count() < TranslatorLimits::Elements; ++step)
            AddNode(tree, MakeSend(QString::number(step), node.key, {remote, u"Lauter"_s, 1, 100, {}}));
    }
    const auto flat = FlattenTree(tree, true);
    const auto& elements = std::get<std::vector<TranslatorRequest>>(flat);
    const int total = int(elements.size());
    std::vector<QByteArray> pages;
    for (int first = 0; first < total; first += PerPage) {
        const int count = std::min(PerPage, total - first);
        const PageHead head{qint16(first), qint16(count), qint16(total), qint16(first + count < total)};
        QByteArray page = EncodePage(
            ListPage<TranslatorRequest>{head, {elements.begin() + first, elements.begin() + first + count}});
        page.resize(ListPage<TranslatorRequest>::Size);
        pages.push_back(page);
    }
    return pages;
}

std::vector<TranslatorRequest> ReadPages(const std::vector<QByteArray>& pages) {
    std::vector<TranslatorRequest> elements;
    for (const QByteArray& bytes : pages) {
        const auto page = DecodePage<TranslatorRequest>(bytes);
        elements.insert(elements.end(), page.elements.begin(), page.elements.end());
    }
    return elements;
}

void Load(const std::vector<QByteArray>& pages, KeyedTree& tree) {
    const auto built = BuildNodes(ReadPages(pages), tree);
    FillTree(tree, std::get<TranslatorNodes>(built));
}

void Report(benchmark::State& state, const KeyedTree& tree) {
    if (tree.Count() != TranslatorLimits::Elements)
        state.SkipWithError("the tree isn't full");
    state.counters["of_50_ms"] = state.counters["ours_us"] / 50'000;
}

/// From the bytes of the pages to the tree, against taking the elements out of the same bytes alone.
void FillTreeFromPages(benchmark::State& state) {
    const auto pages = Pages();
    KeyedTree tree;
    CompareInTurns(
        state, [&] { return TimeOf([&] { Load(pages, tree); }); },
        [&] { return TimeOf([&] { benchmark::DoNotOptimize(ReadPages(pages)); }); });
    Report(state, tree);
}

/// The same with all of it open on the screen, against a tree that nobody sees.
void FillShownTreeFromPages(benchmark::State& state) {
    const auto pages = Pages();
    KeyedTree tree;
    KeyedTree unseen;
    KeyedTreeView view(u"tvwConfig"_s, tree, nullptr);
    view.show();
    const auto show = [&] {
        Load(pages, tree);
        view.expandAll();
        QApplication::processEvents();
    };
    CompareInTurns(
        state, [&] { return TimeOf(show); }, [&] { return TimeOf([&] { Load(pages, unseen); }); });
    Report(state, tree);
}

/// The list of the commands that are free, of 1,000 in a tree of 1,000 nodes, against a list of the same
/// commands that nobody checks.
void FillCommandCombo(benchmark::State& state) {
    constexpr int Most = 1000;
    Session session;
    const Language language;
    Boxes boxes(language);
    frmTranslator form({session, language, boxes}, {}, {}, nullptr);
    auto& tree = *static_cast<KeyedTree*>(form.findChild<KeyedTreeView*>()->model());
    auto* source = form.findChild<TranslatorSourceControls*>();
    auto* commands = form.findChild<ComboBox*>(u"cmbCommands"_s);
    session.NameList = {u"tv"_s};
    emit session.NamesReady(ReplyType::Remotes);
    form.findChild<ComboBox*>(u"cmbRemotes"_s)->setCurrentIndex(0);
    // Every other command is taken.
    for (int i = 0; i < Most; ++i)
        session.CommandList1 += u" key %1"_s.arg(i);
    for (int i = 0; tree.Count() < Most; i += 2)
        AddNode(tree, MakeReceived(TranslatorKind::Macro, TranslatorRootKey, {u"tv"_s, u"key %1"_s.arg(i)}));
    form.show();
    ComboBox plain(u"plain"_s, nullptr);
    CompareInTurns(
        state, [&] { return TimeOf([&] { source->FillCommandCombo(); }); },
        [&] {
            return TimeOf([&] {
                plain.clear();
                plain.addItems(session.CommandList1);
            });
        });
    if (commands->count() != Most / 2)
        state.SkipWithError("the list isn't what it should be");
    state.counters["of_10_ms"] = state.counters["ours_us"] / 10'000;
}

} // namespace

BENCHMARK(FillTreeFromPages)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FillShownTreeFromPages)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(FillCommandCombo)->UseManualTime()->Unit(benchmark::kMillisecond);
