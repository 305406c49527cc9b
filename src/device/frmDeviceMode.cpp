#include "device/frmDeviceMode.h"

#include "device/device_settings_view.h"
#include "forms/controls.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int OpenLevels = 1; ///< the root and the buses stand open, so that all devices are seen
constexpr QSize StartSize = {440, 480};

const KeyedTree& Filled(KeyedTree& tree, const std::vector<DeviceBus>& buses, const Language& language) {
    FillDeviceTree(tree, buses, language);
    return tree;
}

} // namespace

frmDeviceMode::frmDeviceMode(const FormServices& services, const std::vector<DeviceBus>& buses,
                             QWidget* parent)
    : Form(services, u"frmDeviceMode"_s, u"Device Mode"_s, parent)
    , buses(buses)
    , tvwStat(new KeyedTreeView(u"tvwStat"_s, Filled(tree, buses, services.language), this))
    , cmdSet(MakeButton(u"cmdSet"_s, u"Set Modus"_s, this)) {
    auto* cmdExit = MakeButton(u"cmdExit"_s, u"Ende"_s, this);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(tvwStat, 1);
    rows->addLayout(MakeButtonRow({cmdSet, cmdExit}));
    resize(StartSize);

    connect(tvwStat, &KeyedTreeView::Selected, this, &frmDeviceMode::Pick);
    connect(tvwStat, &KeyedTreeView::Activated, this, &frmDeviceMode::Activate);
    connect(cmdSet, &QPushButton::clicked, this, &frmDeviceMode::OpenSettings);
    connect(cmdExit, &QPushButton::clicked, this, &Form::Unload);

    Localize();
    tvwStat->setAccessibleName(windowTitle());
    tvwStat->setExpandsOnDoubleClick(false); // on a device it opens the settings
    tvwStat->expandToDepth(OpenLevels);
    tvwStat->Select(DeviceTreeRoot.toString());
    tvwStat->setFocus();
}

void frmDeviceMode::Pick(const QString& key) {
    cmdSet->setEnabled(PlaceOfKey(key).has_value());
}

void frmDeviceMode::Activate(const QString& key) {
    if (PlaceOfKey(key)) {
        OpenSettings();
        return;
    }
    const QModelIndex node = tree.IndexOf(key);
    tvwStat->setExpanded(node, !tvwStat->isExpanded(node));
}

void frmDeviceMode::OpenSettings() {
    const auto place = PlaceOfKey(tvwStat->SelectedKey());
    const DeviceEntry* device = place ? FindDevice(buses, *place) : nullptr;
    if (device != nullptr)
        OpenDeviceSettings(services, *device, *place, DeviceOrigin::Tree, this, [this] { Unload(); });
}
