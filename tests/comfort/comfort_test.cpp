#include "app/start.h"
#include "forms/tab_frames.h"
#include "panel/frmRemote.h"
#include "visit/form_catalog.h"
#include "visit/palettes.h"

#include "support/suite.h"

#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QTabBar>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

/// The control itself, not a piece of one: the field of a combo or the page of a scroll area.
bool IsControl(const QWidget* widget) {
    return widget->isVisible() && !widget->objectName().startsWith(u"qt_") &&
           qobject_cast<const QComboBox*>(widget->parentWidget()) == nullptr;
}

/// The controls that Tab reaches, in its order.
QWidgetList TabOrder(QWidget* window) {
    QWidgetList order;
    for (QWidget* next = window->nextInFocusChain(); next != window; next = next->nextInFocusChain())
        if (next->window() == window && IsControl(next) && (next->focusPolicy() & Qt::TabFocus) != 0 &&
            next->isEnabled())
            order.append(next);
    return order;
}

QString NameOf(QWidget* control) {
    const QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(control);
    return interface != nullptr ? interface->text(QAccessible::Name).trimmed() : QString();
}

QRect PlaceOf(const QWidget* control, const QWidget* in) {
    return {control->mapTo(in, QPoint()), control->size()};
}

/// A step of reading: to the right in a row, to a lower row, or to the head of a column further right.
bool IsForward(const QRect& from, const QRect& to) {
    return to.left() > from.right() || to.top() > from.bottom();
}

/// What the texts of a control need at least, in pixels; nothing for one whose text is the user's.
QSize NeededBy(const QWidget* control) {
    if (const auto* label = qobject_cast<const QLabel*>(control)) {
        if (label->wordWrap())
            return {0, label->heightForWidth(label->width())};
        return label->sizeHint();
    }
    const auto* button = qobject_cast<const QAbstractButton*>(control);
    if ((button != nullptr && !button->text().isEmpty()) || qobject_cast<const QTabBar*>(control) != nullptr)
        return {control->sizeHint().width(), control->fontMetrics().height()};
    if (const auto* frame = qobject_cast<const QGroupBox*>(control))
        return {frame->fontMetrics().horizontalAdvance(frame->title()), 0};
    if (const auto* combo = qobject_cast<const QComboBox*>(control); combo != nullptr && !combo->isEditable())
        return {combo->minimumSizeHint().width(), combo->fontMetrics().height()};
    return {};
}

/// How much lighter the lightest pixel of a control is than its darkest, as the ratio that readability is
/// told by.
double ContrastOf(QWidget* control) {
    const QImage image = control->grab().toImage().convertToFormat(QImage::Format_Grayscale8);
    uchar darkest = 255;
    uchar lightest = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto [low, high] =
            std::minmax_element(image.constScanLine(y), image.constScanLine(y) + image.width());
        darkest = std::min(darkest, *low);
        lightest = std::max(lightest, *high);
    }
    const auto light = [](uchar grey) { return std::pow(grey / 255.0, 2.2) + 0.05; };
    return light(lightest) / light(darkest);
}

} // namespace

/// Every form in both languages, as somebody meets it who uses the keyboard, a screen reader, large letters
/// or a dark desktop. The scale of the screen comes from outside, by QT_SCALE_FACTOR.
class ComfortTest : public QObject {
    Q_OBJECT

private slots:
    void EveryFormCanBeReadAndReached_data() {
        QTest::addColumn<QString>("word");
        QTest::addColumn<bool>("isDark");
        QTest::addColumn<double>("letters");
        for (const char* word : {"German", "English"})
            for (const double letters : {1.0, 2.0})
                QTest::addRow("%s, letters of %.0f", word, letters)
                    << QString::fromLatin1(word) << (letters > 1) << letters;
    }

    void EveryFormCanBeReadAndReached() {
        QFETCH(const QString, word);
        QFETCH(const bool, isDark);
        QFETCH(const double, letters);
        const QPalette palette = QApplication::palette();
        const QFont font = QApplication::font();
        QFont larger = font;
        larger.setPointSizeF(font.pointSizeF() * letters);
        QApplication::setFont(larger);
        QApplication::setPalette(isDark ? DarkPalette() : palette);

        Session session;
        Language language;
        QVERIFY(ChooseLanguage(language, QStringLiteral(DATA_FOLDER), word, false).isEmpty());
        Boxes boxes(language);
        const FormServices services{session, language, boxes};
        frmRemote window(services, [] { return QString(); });
        Walk(window);
        for (Form* form : MakeAllForms(services, nullptr)) {
            Walk(*form);
            delete form;
        }
        QApplication::setFont(font);
        QApplication::setPalette(palette);
        QVERIFY2(faults.isEmpty(), qPrintable(u'\n' + faults.join(u'\n')));
    }

    void init() { faults.clear(); }

private:
    void Walk(QWidget& window) {
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        auto* tabs = window.findChild<TabFrames*>();
        for (int i = 0; i < (tabs != nullptr ? tabs->Strip()->count() : 1); ++i) {
            if (tabs != nullptr)
                tabs->SetIndex(i);
            QCoreApplication::processEvents();
            LookAt(window,
                   tabs != nullptr ? window.objectName() + u'/' + QString::number(i) : window.objectName());
        }
        window.hide();
    }

    void LookAt(QWidget& window, const QString& where) {
        const auto complain = [&](const QWidget* control, const QString& what) {
            faults.append(u"%1: %2: %3"_s.arg(where, control->objectName(), what));
        };
        QHash<QString, const QWidget*> mnemonics;
        for (QWidget* control : window.findChildren<QWidget*>()) {
            if (!IsControl(control))
                continue;
            const QSize needed = NeededBy(control);
            if (control->width() < needed.width() || control->height() < needed.height())
                complain(control, u"cut: %1x%2 of %3x%4"_s.arg(control->width())
                                      .arg(control->height())
                                      .arg(needed.width())
                                      .arg(needed.height()));
            const QString text = control->property("text").toString() + control->property("title").toString();
            const QString key = QKeySequence::mnemonic(text).toString();
            if (!key.isEmpty() && mnemonics.contains(key))
                complain(control, u"the same mnemonic as "_s + mnemonics[key]->objectName());
            mnemonics.insert(key, control);
            if (control->isEnabled() && !text.isEmpty() && qobject_cast<QGroupBox*>(control) == nullptr &&
                ContrastOf(control) < 3)
                complain(control, u"hard to read"_s);
        }
        const QWidgetList order = TabOrder(&window);
        for (int i = 0; i < order.size(); ++i) {
            if (NameOf(order[i]).isEmpty())
                complain(order[i], u"no name for a screen reader"_s);
            if (i > 0 && !IsForward(PlaceOf(order[i - 1], &window), PlaceOf(order[i], &window)))
                complain(order[i], u"Tab goes back to it from "_s + order[i - 1]->objectName());
        }
    }

    QStringList faults;
};

SUITE(ComfortTest);

#include "comfort_test.moc"
