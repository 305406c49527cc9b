#include "database/database_page.h"

#include "database/value_controls.h"
#include "forms/controls.h"

#include <QFormLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int TreeWidth = 40;   ///< characters that the tree shows at least
constexpr int FormatWidth = 30; ///< likewise the formats

/// A check box, what it stands for, and when it is enabled. A box without a rule always is.
struct FlagRow {
    QString name;
    QString caption;
    bool DatabaseSettings::*value;
    bool DatabaseDevice::Controls::*enabled = nullptr;
    bool DatabaseDevice::Controls::*unchecked = nullptr;
};

/// From the top of the page down. A rule of a box reaches only those below it.
const std::vector<FlagRow>& FlagRows() {
    using Settings = DatabaseSettings;
    using Device = DatabaseDevice::Controls;
    static const std::vector<FlagRow> rows = {
        {u"chkActive"_s, u"Device DB aktiv"_s, &Settings::active},
        {u"chkReceive"_s, u"IRDB Empfang aktiv"_s, &Settings::receive, &Device::receive},
        {u"chkAUX"_s, u"Codes an AUX RS232 Port 1 senden"_s, &Settings::aux, &Device::aux},
        {u"chkLAN"_s, u"IRDB Empfang via LAN Weiterleitung"_s, &Settings::lan, &Device::lan},
        {u"chkRelay"_s, u"Relaiscontrol via LAN Weiterleitung"_s, &Settings::relay, &Device::relay},
        {u"chkBinary"_s, u"Senden über IRDB Command Actions"_s, &Settings::binary, &Device::binary,
         &Device::uncheckBinary},
        {u"chkLine"_s, u"Zeilenweise senden über IRDB Actions"_s, &Settings::line, &Device::line,
         &Device::uncheckLine},
    };
    return rows;
}
constexpr size_t BinaryRow = 5;
constexpr size_t LineRow = 6;

} // namespace

DatabasePage::DatabasePage(KeyedTree& tree, QWidget* parent)
    : QWidget(parent)
    , tree(tree)
    , tvwRemotes(new KeyedTreeView(u"tvwRemotes"_s, tree, this)) {
    setObjectName(u"frIRDB"_s);
    tvwRemotes->setMinimumWidth(fontMetrics().averageCharWidth() * TreeWidth);
    // A double click on a remote opens its properties; it needn't turn the branch as well.
    tvwRemotes->setExpandsOnDoubleClick(false);

    auto* left = new QVBoxLayout;
    left->addWidget(MakeLabel(u"lblRemotes"_s, u"Fernbedienungen und Befehle"_s, this, tvwRemotes));
    left->addWidget(tvwRemotes, 1);
    auto* right = new QVBoxLayout;
    right->addWidget(MakeFlags());
    right->addWidget(MakeFormats());
    right->addStretch();
    auto* columns = new QHBoxLayout(this);
    columns->addLayout(left, 1);
    columns->addLayout(right);
    MakeMenu();

    connect(flags[BinaryRow], &QCheckBox::toggled, this, &DatabasePage::ApplyBinary);
    connect(tvwRemotes, &KeyedTreeView::MenuAsked, this, &DatabasePage::ShowMenu);
    connect(tvwRemotes, &KeyedTreeView::Activated, this, &DatabasePage::Activate);
    connect(tvwRemotes, &KeyedTreeView::DeleteAsked, this,
            [this](const QString& key) { DatabaseTree::SetTag(this->tree, key, {}); });
}

QWidget* DatabasePage::MakeFlags() {
    auto* frame = MakeFrame(u"fraFlags"_s, u"Datenbank"_s, this);
    auto* rows = new QVBoxLayout(frame);
    for (const FlagRow& row : FlagRows()) {
        flags.push_back(MakeCheckBox(row.name, row.caption, frame));
        rows->addWidget(flags.back());
    }
    return frame;
}

QWidget* DatabasePage::MakeFormats() {
    const DatabaseSettings defaults;
    auto* frame = MakeFrame(u"fraFormats"_s, u"Formate und Ziel"_s, this);
    auto* rows = new QFormLayout(frame);
    const auto add = [&](const QString& name, int maxLength, const QString& text, const QString& labelName,
                         const QString& caption) {
        auto* box = MakeTextBox(name, maxLength, frame);
        box->setText(text);
        rows->addRow(MakeLabel(labelName, caption, frame, box), box);
        return box;
    };
    txtAction = add(u"txtAction"_s, DatabaseSettings::ActionMax, defaults.actionFormat, u"Label3"_s,
                    u"Default Action"_s);
    txtOK = add(u"txtOK"_s, DatabaseSettings::StatusMax, defaults.okFormat, u"Label4"_s, u"Status OK"_s);
    txtErr =
        add(u"txtErr"_s, DatabaseSettings::StatusMax, defaults.errorFormat, u"Label5"_s, u"Status Error"_s);
    txtAction->setMinimumWidth(fontMetrics().averageCharWidth() * FormatWidth);

    targetLabel = MakeLabel(u"Label13"_s, u"IP/Port"_s, frame);
    txtIP = new AddressBoxes(u"txtIP"_s, 0, targetLabel, frame);
    targetLabel->setBuddy(txtIP);
    txtPort = MakePortBox(u"txtPort"_s, frame);
    txtPort->setAccessibleName(u"Port"_s);
    auto* target = new QHBoxLayout;
    target->addWidget(txtIP, 1);
    target->addWidget(txtPort);
    rows->addRow(targetLabel, target);
    return frame;
}

void DatabasePage::MakeMenu() {
    fnuPopupTree = new QMenu(this);
    fnuPopupTree->setObjectName(u"fnuPopupTree"_s);
    const auto add = [this](int index, const QString& caption, auto&& slot) {
        auto* action = fnuPopupTree->addAction(caption, this, slot);
        action->setObjectName(ElementName(u"fnuRemProperties"_s, index));
        return action;
    };
    select = add(10, u"Auswählen"_s, [this] { DatabaseTree::SelectRemote(tree, menuKey); });
    deselect = add(20, u"Auwahl aufheben"_s, [this] { DatabaseTree::SetTag(tree, menuKey, {}); });
    properties = add(30, u"Eigenschaften"_s, [this] { emit PropertiesAsked(menuKey); });
}

void DatabasePage::ShowMenu(const QString& key, const QPoint& position) {
    const KeyedNode* node = tree.Find(key);
    if (node == nullptr)
        return;
    if (!DatabaseTree::IsRemote(*node))
        return Activate(key);
    const DatabaseTree::MenuEntries entries = DatabaseTree::MenuOf(*node);
    select->setEnabled(entries.canSelect);
    deselect->setEnabled(entries.canDeselect);
    properties->setEnabled(entries.canEdit);
    menuKey = key;
    fnuPopupTree->popup(position);
}

/// A remote without properties has no dialog, so that its branch opens or closes instead.
void DatabasePage::Activate(const QString& key) {
    const KeyedNode* node = tree.Find(key);
    if (node == nullptr)
        return;
    if (!DatabaseTree::IsRemote(*node) || DatabaseTree::MenuOf(*node).canEdit)
        return emit PropertiesAsked(key);
    const QModelIndex index = tree.IndexOf(key);
    tvwRemotes->setExpanded(index, !tvwRemotes->isExpanded(index));
}

void DatabasePage::Collect(DatabaseSettings& values) const {
    for (size_t i = 0; i < flags.size(); ++i)
        values.*FlagRows()[i].value = flags[i]->isChecked();
    values.actionFormat = txtAction->text();
    values.okFormat = txtOK->text();
    values.errorFormat = txtErr->text();
    for (int place = 0; place < AddressBoxes::Count; ++place)
        values.target.ip[size_t(place)] = txtIP->Box(place)->text();
    values.target.port = txtPort->text();
}

void DatabasePage::Show(const DatabaseSettings& values) {
    // From the last box up, so that what chkBinary rules for chkLine comes behind chkLine itself.
    for (size_t i = flags.size(); i-- > 0;)
        flags[i]->setChecked(values.*FlagRows()[i].value);
    txtAction->SetLongText(values.actionFormat);
    txtOK->SetLongText(values.okFormat);
    txtErr->SetLongText(values.errorFormat);
    for (int place = 0; place < AddressBoxes::Count; ++place)
        txtIP->Box(place)->setText(values.target.ip[size_t(place)]);
    txtPort->setText(values.target.port);
}

void DatabasePage::SetDevice(const QString& version) {
    device = version;
    abilities = DatabaseDevice::ControlsOf(version, flags[BinaryRow]->isChecked());
    for (size_t i = 0; i < flags.size(); ++i) {
        const FlagRow& row = FlagRows()[i];
        if (row.unchecked != nullptr && abilities.*row.unchecked)
            flags[i]->setChecked(false);
        if (row.enabled != nullptr)
            flags[i]->setEnabled(abilities.*row.enabled);
    }
    for (QWidget* control :
         {static_cast<QWidget*>(targetLabel), static_cast<QWidget*>(txtIP), static_cast<QWidget*>(txtPort)})
        control->setEnabled(abilities.target);
}

void DatabasePage::ApplyBinary(bool isChecked) {
    const bool isEnabled = DatabaseDevice::LineEnabled(device, isChecked);
    flags[LineRow]->setEnabled(isEnabled);
    if (!isEnabled)
        flags[LineRow]->setChecked(false);
}
