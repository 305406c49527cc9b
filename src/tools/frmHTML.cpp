#include "tools/frmHTML.h"

#include "forms/controls.h"
#include "link/capabilities.h"
#include "link/device_list.h"
#include "tools/text_replies.h"

#include <QHeaderView>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

enum Column { Filename, Length, Date, Columns };

constexpr qsizetype MostListed = Wire::TextFrameMax; ///< characters; far more than a device has room for

} // namespace

frmHTML::frmHTML(const FormServices& services, const StatusStore& status, QWidget* parent)
    : Form(services, u"frmHTML"_s, u"HTML Seiten"_s, parent)
    , lstFiles(new QTreeWidget(this))
    , cmbDevice(MakeComboBox(u"cmbDevice"_s, {}, this))
    , cmdFlash(MakeButton(u"cmdFlash"_s, u"Flashen"_s, this)) {
    lstFiles->setObjectName(u"lstFiles"_s);
    lstFiles->setAccessibleName(u"Filename"_s);
    lstFiles->setHeaderLabels({u"Filename"_s, u"Length"_s, u"Date"_s});
    lstFiles->headerItem()->setTextAlignment(Length, Qt::AlignRight | Qt::AlignVCenter);
    lstFiles->setRootIsDecorated(false);
    lstFiles->setUniformRowHeights(true);
    lstFiles->header()->setStretchLastSection(false);
    lstFiles->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    lstFiles->header()->setSectionResizeMode(Filename, QHeaderView::Stretch);
    // As wide as the form, not as what a device tells of itself.
    cmbDevice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    auto* cmdAll = MakeButton(u"cmdAll"_s, u"Alle auswählen"_s, this);
    auto* cmdNone = MakeButton(u"cmdNone"_s, u"Auswahl aufheben"_s, this);
    auto* cmdRevert = MakeButton(u"cmdRevert"_s, u"Auswahl umkehren"_s, this);
    auto* lblDevice = MakeLabel(u"lblDevice"_s, u"Device"_s, this, cmbDevice);
    auto* cmdDone = MakeButton(u"cmdDone"_s, u"Ende"_s, this);

    auto* selection = new QHBoxLayout;
    for (QPushButton* button : {cmdAll, cmdNone, cmdRevert})
        selection->addWidget(button, 1);
    auto* device = new QHBoxLayout;
    device->addWidget(lblDevice);
    device->addWidget(cmbDevice, 1);
    auto* column = new QVBoxLayout(this);
    column->addWidget(lstFiles, 1);
    column->addLayout(selection);
    column->addLayout(device);
    column->addLayout(MakeButtonRow({cmdFlash, cmdDone}));
    ChainTabs({lstFiles, cmdAll, cmdNone, cmdRevert, cmbDevice, cmdFlash});
    // Enter in the list must not write into a device.
    cmdFlash->setDefault(false);
    resize(fontMetrics().averageCharWidth() * 72, fontMetrics().lineSpacing() * 24);

    connect(cmdAll, &QPushButton::clicked, this, [this] { Check([](bool) { return true; }); });
    connect(cmdNone, &QPushButton::clicked, this, [this] { Check([](bool) { return false; }); });
    connect(cmdRevert, &QPushButton::clicked, this, [this] { Check([](bool now) { return !now; }); });
    connect(cmdFlash, &QPushButton::clicked, this, &frmHTML::Flash);
    connect(cmdDone, &QPushButton::clicked, this, &Form::Unload);
    connect(&services.session, &Session::TextReceived, this, [this](const QString& text) {
        const auto reply = PageProtocol::Parse(text);
        if (reply.kind == PageProtocol::Reply::Kind::FileList)
            FillHTMLFilelist(reply.rest);
    });

    Localize();
    services.session.SendTextLine(PageProtocol::AskForFiles.toString());
    for (const ListedDevice& each : ListDevices(status, Capability::Pages))
        cmbDevice->addItem(each.text, each.tag);
    if (cmbDevice->count() > 0)
        cmbDevice->setCurrentIndex(0);
    else
        cmdFlash->setEnabled(false);
}

void frmHTML::FillHTMLFilelist(const QString& list) {
    listed += list.size();
    if (listed > MostListed)
        return;
    QList<QTreeWidgetItem*> items;
    for (const PageProtocol::PageFile& file : PageProtocol::ParseFiles(list)) {
        auto* item = new QTreeWidgetItem({file.name, file.length, file.date});
        item->setTextAlignment(Length, Qt::AlignRight | Qt::AlignVCenter);
        item->setCheckState(Filename, Qt::Unchecked);
        items += item;
    }
    lstFiles->addTopLevelItems(items);
}

void frmHTML::Check(bool (*isChecked)(bool)) {
    for (int i = 0; i < lstFiles->topLevelItemCount(); ++i) {
        QTreeWidgetItem* item = lstFiles->topLevelItem(i);
        const bool isCheckedNow = item->checkState(Filename) == Qt::Checked;
        item->setCheckState(Filename, isChecked(isCheckedNow) ? Qt::Checked : Qt::Unchecked);
    }
}

void frmHTML::Flash() {
    QStringList names;
    for (int i = 0; i < lstFiles->topLevelItemCount(); ++i)
        if (const auto* item = lstFiles->topLevelItem(i); item->checkState(Filename) == Qt::Checked)
            names += item->text(Filename);
    services.session.SendTextLine(PageProtocol::FlashLine(names));
}
