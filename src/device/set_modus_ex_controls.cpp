#include "device/set_modus_ex_controls.h"

#include "device/set_modus_ex_lists.h"
#include "forms/localize.h"

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace ModusEx;

namespace {

constexpr std::array boxNames = {"chkMode(0)",       "chkMode(1)",       "chkMode(2)",
                                 "chkMode(3)",       "chkMode(4)",       "chkMode(5)",
                                 "chkMode(7)",       "chkExt(0)",        "chkExt(1)",
                                 "chkExt(4)",        "chkExt(5)",        "chkExt(6)",
                                 "chkRCV1",          "chkRCV2",          "chkSort",
                                 "chkLongRepeat",    "chkRepeat",        "chkRTS",
                                 "chkRCMM",          "chkForceRCMM",     "chkRCMMToggle",
                                 "chkRStep56",       "chkRC5",           "chkRC6",
                                 "chkRC6Toggle",     "chkSBUSSend",      "chkUSBWakeup",
                                 "chkStateInternal", "chkStateExternal", "chkIROutRS232",
                                 "chkRC5free",       "chkUDP",           "chkEmulateExternal",
                                 "chkXLong"};
static_assert(boxNames.size() == size_t(Box::Count));

constexpr std::array listNames = {"cmbReceiver1", "cmbReceiver2", "cmbTolerance",   "cmbIdle",
                                  "cmbFilter",    "cmbCycle",     "cmbToggleCount", "cmbIO",
                                  "cmbIRInput",   "cmbBaudrate",  "cmbAuxBaudrate", "cmbParity",
                                  "cmbDatabits",  "cmbStopbits",  "cmbSBUS",        "cmbDate",
                                  "cmbTime",      "cmbAktiv",     "cmbInaktiv"};
static_assert(listNames.size() == size_t(List::Count));

constexpr std::array textNames = {"txtTimeout",    "txtToggle",      "txtHotremote", "txtHotcommand",
                                  "txtHotremote2", "txtHotcommand2", "txtMAC"};
static_assert(textNames.size() == size_t(Text::Count));

} // namespace

QString SetModusExControls::NameOf(Box box) {
    return QLatin1StringView(boxNames[size_t(box)]);
}

QString SetModusExControls::NameOf(List list) {
    return QLatin1StringView(listNames[size_t(list)]);
}

QCheckBox* SetModusExControls::Make(Box box, const QString& caption, QWidget* parent) {
    auto* control = MakeCheckBox(NameOf(box), caption, parent);
    if (SplitControlName(control->objectName()).index >= 0)
        control->setProperty("tag", OwnKeyTag);
    Follow(control, box);
    shows.emplace_back([this, control, box] { control->setChecked(state.IsOn(box)); });
    QObject::connect(control, &QCheckBox::toggled, control, [this, box](bool isOn) {
        if (state.IsOn(box) == isOn)
            return;
        state.SetOn(box, isOn);
        Show();
    });
    return control;
}

ComboBox* SetModusExControls::Make(List list, const QStringList& entries, QWidget* parent) {
    Q_ASSERT(entries.size() == qsizetype(DesignedCodes(list).size()));
    auto* control = MakeComboBox(NameOf(list), entries, parent);
    lists.emplace_back(list, control);
    Follow(control, list);
    shows.emplace_back([this, control, list] { control->setCurrentIndex(state.Index(list)); });
    QObject::connect(control, &QComboBox::currentIndexChanged, control, [this, list](int index) {
        if (state.Index(list) == index)
            return;
        state.Select(list, index);
        Show();
    });
    return control;
}

TextBox* SetModusExControls::Make(Text text, int maxLength, QWidget* parent) {
    auto* control = MakeTextBox(QLatin1StringView(textNames[size_t(text)]), maxLength, parent);
    Follow(control, text);
    shows.emplace_back([this, control, text] {
        // Setting a text moves the cursor, also if it is the same.
        if (control->text() != state.Content(text))
            control->setText(state.Content(text));
    });
    QObject::connect(control, &QLineEdit::textChanged, control, [this, text](const QString& content) {
        if (state.Content(text) == content)
            return;
        state.SetContent(text, content);
        Show();
    });
    return control;
}

MaskBoxes* SetModusExControls::MakeMask(const QLabel* title, const QString& digitsName, QWidget* parent) {
    auto* control = new MaskBoxes(u"chkMask"_s, 0, title, digitsName, parent);
    FollowMask(control);
    shows.emplace_back([this, control] { control->SetValue(state.Mask()); });
    QObject::connect(control, &MaskBoxes::Changed, control,
                     [this, control] { state.SetMask(control->Value()); });
    return control;
}

void SetModusExControls::FollowIf(QWidget* widget, std::function<bool()> isEnabled) {
    shows.emplace_back([widget, isEnabled = std::move(isEnabled)] { widget->setEnabled(isEnabled()); });
}

void SetModusExControls::ShapeLists() const {
    for (const auto& [list, control] : lists) {
        const std::vector<int>& codes = state.Codes(list);
        const std::vector<int> designed = DesignedCodes(list);
        for (int i = int(designed.size()) - 1; i >= 0; --i)
            if (std::ranges::count(codes, designed[size_t(i)]) == 0)
                control->RemoveEntry(i);
        for (size_t i = size_t(control->count()); i < codes.size(); ++i)
            control->addItem(AddedText(state, list, codes[i]));
    }
}

void SetModusExControls::Show() const {
    for (const auto& show : shows)
        show();
}
