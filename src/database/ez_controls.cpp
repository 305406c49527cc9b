#include "database/ez_controls.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int FieldMax = 5; // characters

/// Two fields that one label names.
class FieldPair : public NumberedBoxes {
public:
    FieldPair(const QLabel* title, QWidget* parent)
        : NumberedBoxes(title, parent)
        , row(new QHBoxLayout(this)) {
        row->setContentsMargins(0, 0, 0, 0);
    }

    void Add(QWidget* field) {
        row->addWidget(field);
        AddBox(field, row->count());
        if (row->count() == 1)
            setFocusProxy(field);
    }

private:
    QHBoxLayout* row;
};

void Enable(const std::vector<QWidget*>& controls, bool isOn) {
    for (QWidget* control : controls)
        control->setEnabled(isOn);
}

} // namespace

EzControls::EzControls(int page, EzFields& fields, QWidget* parent)
    : QFrame(parent)
    , page(page)
    , fields(fields) {
    setObjectName(ElementName(u"frmEZ"_s, page));
    setFrameShape(QFrame::StyledPanel);
    auto* grid = new QGridLayout(this);
    grid->addWidget(MakeLabel(ElementName(u"Label8"_s, page), u"EZ Control Codes"_s, this), 0, 0, 1, 5);
    MakeShortForm(grid);
    MakeLongForm(grid);
    // The options stand at the edge, what they enable a little to the right of it.
    grid->setColumnMinimumWidth(0, grid->horizontalSpacing() * 2);
    grid->setColumnStretch(4, 1);

    connect(optLong, &QRadioButton::toggled, this, [this](bool isLong) {
        if (this->fields.isLong == isLong)
            return;
        this->fields.isLong = isLong;
        emit FormChanged();
    });
    connect(cmbTyp, &QComboBox::currentIndexChanged, this, [this](int index) { this->fields.type = index; });
}

void EzControls::MakeShortForm(QGridLayout* grid) {
    optShort = MakeOption(ElementName(u"optShort"_s, page), u"Vorkonfigurierte Schalter"_s, this);
    optShort->setChecked(true);
    grid->addWidget(optShort, 1, 0, 1, 5);
    const auto add = [&](int index, const QString& caption, const QString& name, QString& member) {
        auto* title = MakeTitle(index, caption, shortControls);
        auto* field = MakeField(name, 0, member, shortControls);
        title->setBuddy(field);
        grid->addWidget(title, 2, index * 2 - 1);
        grid->addWidget(field, 2, index * 2);
    };
    add(1, u"Schalter Nummer"_s, u"txtSNr"_s, fields.number);
    add(2, u"Schalter Wert"_s, u"txtSWert"_s, fields.value);
}

void EzControls::MakeLongForm(QGridLayout* grid) {
    optLong = MakeOption(ElementName(u"optLong"_s, page), u"Freies Senden von Codes"_s, this);
    grid->addWidget(optLong, 3, 0, 1, 5);
    const auto add = [&](int index, QLabel* title, QWidget* field) {
        const int place = index - 3;
        title->setBuddy(field);
        grid->addWidget(title, 4 + place / 2, 1 + place % 2 * 2);
        grid->addWidget(field, 4 + place / 2, 2 + place % 2 * 2, Qt::AlignLeft);
    };
    const auto addField = [&](int index, const QString& caption, const QString& name, QString& member) {
        auto* title = MakeTitle(index, caption, longControls);
        add(index, title, MakeField(name, FieldMax, member, longControls));
    };
    const auto addPair = [&](int index, const QString& caption, const QString& first, QString& firstMember,
                             const QString& second, QString& secondMember) {
        auto* title = MakeTitle(index, caption, longControls);
        auto* pair = new FieldPair(title, this);
        pair->Add(MakeField(first, FieldMax, firstMember, longControls));
        pair->Add(MakeField(second, FieldMax, secondMember, longControls));
        add(index, title, pair);
    };
    auto* lblTyp = MakeTitle(3, u"Systemtyp"_s, longControls);
    cmbTyp = MakeComboBox(ElementName(u"cmbTyp"_s, page), EzTypes(), this);
    longControls.push_back(cmbTyp);
    add(3, lblTyp, cmbTyp);
    addPair(4, u"Hauscode 1/2"_s, u"txtHC1"_s, fields.houseCode1, u"txtHC2"_s, fields.houseCode2);
    addField(5, u"Adresse"_s, u"txtAdr"_s, fields.address);
    addField(6, u"Wert"_s, u"txtValue"_s, fields.longValue);
    addPair(7, u"Arg. / Repeat"_s, u"txtArg"_s, fields.argument, u"txtRepeat"_s, fields.repeat);
}

TextBox* EzControls::MakeField(const QString& name, int maxLength, QString& member,
                               std::vector<QWidget*>& group) {
    auto* box = MakeTextBox(ElementName(name, page), maxLength, this);
    controls.Tie(box, member);
    group.push_back(box);
    return box;
}

QLabel* EzControls::MakeTitle(int index, const QString& caption, std::vector<QWidget*>& group) {
    auto* title = MakeLabel(ElementName(u"Label%1"_s.arg(index), page), caption, this);
    group.push_back(title);
    return title;
}

void EzControls::Show(bool isShort, bool isLong) {
    controls.Show();
    cmbTyp->setCurrentIndex(fields.type);
    (fields.isLong ? optLong : optShort)->setChecked(true);
    Enable(shortControls, isShort);
    Enable(longControls, isLong);
}
