#pragma once

#include "translator/translator_refusal.h"
#include "translator/translator_tree.h"

#include <QRandomGenerator>
#include <QTest>

/// A tree of all kinds at all places, and beside it what comes back of it.
class RandomTree {
public:
    explicit RandomTree(quint32 seed)
        : random(seed) {
        const ContainerTag root{true, Name(), Mask(), Mask(), Below(256)};
        Add(MakeRoot(root), MakeRoot(root));
        Fill(TranslatorRootKey, 0);
    }

    KeyedTree tree;
    KeyedTree expected;

private:
    int Below(int limit) { return int(random.bounded(limit)); }
    qint32 Mask() { return qint32(random.generate()); }
    /// No two are the same.
    QString Name() { return QStringLiteral("Gerät %1 @.ü€").arg(++names); }

    void Add(const TranslatorNode& node, const TranslatorNode& loaded) {
        QVERIFY(AddNode(tree, node));
        QVERIFY(AddNode(expected, loaded));
    }

    void Fill(const QString& container, int depth) {
        const TranslatorKind holder = KindOf(container);
        for (int children = Below(depth == 0 ? 12 : 5); children > 0; --children) {
            switch (Below(6)) {
            case 0:
                if (holder == TranslatorKind::Root && ++remotes <= TranslatorLimits::Remotes) {
                    const auto remote = MakeRemote({false, Name(), Mask(), Mask(), Below(256)});
                    Add(remote, remote);
                    Fill(remote.key, depth + 1);
                }
                break;
            case 1:
                if ((holder == TranslatorKind::Remote || holder == TranslatorKind::Multi) &&
                    ++groups <= TranslatorLimits::Groups)
                    AddHolder(container, TranslatorType::Group, depth);
                break;
            case 2:
                if (holder != TranslatorKind::Multi && depth < 5)
                    AddHolder(container, TranslatorType::Multi, depth);
                break;
            case 3: AddReceived(TranslatorKind::Command, container, 1 + Below(2), 2); break;
            case 4: AddReceived(TranslatorKind::Macro, container, 100 + Below(20), 9); break;
            case 5: AddReceived(TranslatorKind::Toggle, container, 70 + Below(5), 5); break;
            }
        }
    }

    void AddHolder(const QString& container, int type, int depth) {
        const auto node = MakeGroup(container, {Name(), QStringLiteral("Taste"), type, Mask(), Below(256)});
        Add(node, node);
        Fill(node.key, depth + 1);
    }

    /// The type counts the steps of macros and toggles; a param comes back in units of 16, the tie to the
    /// even one; steps are numbered and have a pause and a condition.
    void AddReceived(TranslatorKind kind, const QString& container, int type, int mostSteps) {
        CommandTag tag{Name(),     QStringLiteral("on"),           type, Mask(), Below(256),
                       Below(256), Below(CommandTag::ParamMax + 1)};
        const auto node = MakeReceived(kind, container, tag);
        const int steps = Below(mostSteps + 1);
        if (type >= 70)
            tag.type = (type >= 100 ? 100 : 70) + steps;
        const int rest = tag.param % 16;
        const int whole = tag.param / 16;
        tag.param = 16 * (rest > 8 || (rest == 8 && whole % 2 == 1) ? whole + 1 : whole);
        Add(node, MakeReceived(kind, container, tag));
        for (int step = 0; step < steps; ++step) {
            SendTag send{Name(), QStringLiteral("off"), Mask(), {}, {}};
            SendTag loaded = send;
            if (Below(2) == 1)
                send.pause = Below(4001);
            const int condition = Below(4);
            if (condition > 0)
                send.condition = condition == 1 ? QStringLiteral("0")
                                                : QStringLiteral("IO1%1%2").arg(Below(2)).arg(Below(2));
            loaded.pause = send.pause.value_or(0);
            loaded.condition = condition > 1 ? send.condition : QStringLiteral("IO000");
            Add(MakeSend(QString::number(7 * step + 3), node.key, send),
                MakeSend(QString::number(step), node.key, loaded));
        }
    }

    QRandomGenerator random;
    int names = 0;
    int remotes = 0;
    int groups = 0;
};
