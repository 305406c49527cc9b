#include "forms/localize.h"

#include "forms/controls.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QMenu>
#include <QRadioButton>
#include <QStatusBar>
#include <QTabBar>

namespace {

class Localizer {
public:
    Localizer(QWidget& form, const Language& language)
        : form(form)
        , language(language) {}

    void Run() {
        form.setWindowTitle(language.GetLanguageText(form.objectName(), form.windowTitle()));
        LocalizeChildren(form);
    }

private:
    void LocalizeChildren(const QObject& parent) {
        for (QObject* control : parent.children()) {
            if (IsNamedByUs(*control))
                Localize(control);
            if (!IsComposite(*control))
                LocalizeChildren(*control);
        }
    }

    /// Names with these starts are those of the toolkit's own parts.
    static bool IsNamedByUs(const QObject& control) {
        const QString name = control.objectName();
        return !name.isEmpty() && !name.startsWith(u"qt_") && !name.startsWith(u"_q_");
    }

    /// What lies inside these controls are parts of theirs, named or not.
    static bool IsComposite(const QObject& control) {
        return qobject_cast<const QComboBox*>(&control) != nullptr ||
               qobject_cast<const QTabBar*>(&control) != nullptr ||
               qobject_cast<const QLineEdit*>(&control) != nullptr ||
               qobject_cast<const QAbstractItemView*>(&control) != nullptr;
    }

    void Localize(QObject* control) {
        if (auto* option = qobject_cast<QRadioButton*>(control))
            SetCaption(option, KeyWithIndex(option));
        else if (auto* button = qobject_cast<QAbstractButton*>(control))
            SetCaption(button, Key(button));
        else if (auto* label = qobject_cast<QLabel*>(control); label != nullptr && !IsOfStatusBar(label))
            ::SetCaption(*label, language.GetLanguageText(Key(label), CaptionOf(*label)));
        else if (auto* frame = qobject_cast<QGroupBox*>(control))
            frame->setTitle(Translated(Key(frame), frame->title()));
        else if (auto* action = qobject_cast<QAction*>(control); action != nullptr && !action->isSeparator())
            action->setText(Translated(KeyWithIndex(action), action->text()));
        else if (auto* box = qobject_cast<QLineEdit*>(control))
            box->setText(language.GetLanguageText(Key(box), box->text()));
        else if (auto* list = qobject_cast<QComboBox*>(control))
            for (int i = 0; i < list->count(); ++i)
                list->setItemText(i, language.GetLanguageText(EntryKey(list, i), list->itemText(i)));
        else if (auto* tabs = qobject_cast<QTabBar*>(control))
            for (int i = 0; i < tabs->count(); ++i)
                tabs->setTabText(i, Translated(EntryKey(tabs, i + 1), tabs->tabText(i)));
    }

    static bool IsOfStatusBar(const QWidget* control) {
        return qobject_cast<QStatusBar*>(control->parentWidget()) != nullptr;
    }

    void SetCaption(QAbstractButton* button, const QString& key) {
        button->setText(Translated(key, button->text()));
    }

    QString Translated(const QString& key, const QString& mnemonicText) const {
        return ToMnemonicText(language.GetLanguageText(key, FromMnemonicText(mnemonicText)));
    }

    QString EntryKey(const QObject* control, int entry) const {
        return form.objectName() + u'.' + SplitControlName(control->objectName()).name + u'.' +
               QString::number(entry);
    }

    QString KeyWithIndex(const QObject* control) const {
        return EntryKey(control, SplitControlName(control->objectName()).index);
    }

    QString Key(const QObject* control) const {
        if (control->property("tag").toInt() == OwnKeyTag)
            return KeyWithIndex(control);
        return form.objectName() + u'.' + SplitControlName(control->objectName()).name;
    }

    QWidget& form;
    const Language& language;
};

} // namespace

void LocalizeForm(QWidget& form, const Language& language) {
    Localizer(form, language).Run();
}
