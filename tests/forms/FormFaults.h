// What keeps a person with a screen reader or without a mouse from using a form, as one line per fault.
#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QProgressBar>
#include <QShortcut>
#include <QStatusBar>
#include <QTest>
#include <QTextEdit>
#include <QToolBar>

#include <algorithm>
#include <map>

namespace velmora {

class FormFaults {
public:
    /// Every rule, on a form that is shown and active. Moves its focus.
    static QStringList Of(QWidget& form) {
        FormFaults faults(form);
        faults.CheckNames();
        faults.CheckMnemonics();
        faults.CheckShortcuts();
        faults.CheckReach();
        faults.CheckTabOrder();
        return faults.found_;
    }
    /// What a screen reader calls it. On this system a combo box is called by what is chosen in it, whatever its name
    /// is: its label or its description must say what that is.
    static QString NameOf(QWidget& control) {
        const QAccessibleInterface& spoken = *QAccessible::queryAccessibleInterface(&control);
        if (!qobject_cast<QComboBox*>(&control))
            return spoken.text(QAccessible::Name);
        const auto labels = spoken.relations(QAccessible::Label);
        return labels.isEmpty() ? spoken.text(QAccessible::Description) : labels.first().first->text(QAccessible::Name);
    }

private:
    using Keys = QList<std::pair<QKeySequence, QString>>; ///< with what they belong to

    explicit FormFaults(QWidget& form) : form_(form) {
        for (QWidget* widget : form.findChildren<QWidget*>())
            if (widget->isVisible() && widget->window() == &form)
                (IsControl(*widget) ? controls_ : others_).push_back(widget);
    }

    template <typename... Types> static bool IsAnyOf(const QWidget& widget) {
        return (qobject_cast<const Types*>(&widget) || ...);
    }
    /// Something to work with, or something that speaks of the work; parts of such a control belong to it.
    bool IsControl(const QWidget& widget) const {
        for (const QWidget* whole = widget.parentWidget(); whole && whole != &form_; whole = whole->parentWidget())
            if (IsAnyOf<QComboBox, QAbstractSpinBox, QLineEdit, QAbstractItemView, QTextEdit>(*whole))
                return false;
        return (widget.focusPolicy() & Qt::TabFocus) || IsAnyOf<QAbstractButton, QComboBox, QAbstractSpinBox, QLineEdit,
                                                                QAbstractItemView, QTextEdit, QProgressBar>(widget);
    }
    static bool TakesTab(const QWidget& control) {
        return control.isEnabled() && (control.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
    }
    QRect Place(const QWidget& control) const { return {control.mapTo(&form_, QPoint()), control.size()}; }
    static QString Called(const QWidget& control) {
        const auto* button = qobject_cast<const QAbstractButton*>(&control);
        const QString name = control.objectName().isEmpty() && button ? button->text() : control.objectName();
        return QString("%1 \"%2\"").arg(control.metaObject()->className(), name);
    }
    void Add(const QString& fault) { found_ << form_.objectName() + ": " + fault; }

    /// Two controls of one kind with one name cannot be told apart by who only hears them.
    void CheckNames() {
        if (NameOf(form_).isEmpty())
            Add("the window has no name");
        std::map<std::pair<int, QString>, QWidget*> named;
        for (QWidget* control : controls_) {
            const QString name = NameOf(*control).trimmed();
            if (std::none_of(name.begin(), name.end(), [](QChar c) { return c.isLetterOrNumber(); }))
                Add(Called(*control) + " has no name");
            const int role = QAccessible::queryAccessibleInterface(control)->role();
            if (const auto [other, fresh] = named.emplace(std::pair(role, name), control); !fresh)
                Add(Called(*control) + " is named \"" + name + "\" as is " + Called(*other->second));
        }
    }

    void CheckUnique(const QString& place, const Keys& keys) {
        std::map<QString, QString> owners;
        for (const auto& [key, owner] : keys)
            if (const auto [other, fresh] = owners.emplace(key.toString(), owner); !key.isEmpty() && !fresh)
                Add(place + ": " + key.toString() + " is of " + other->second + " and of " + owner);
    }
    void CheckMnemonics() {
        Keys keys;
        for (const QWidget* control : controls_)
            if (const auto* button = qobject_cast<const QAbstractButton*>(control))
                keys << std::pair(QKeySequence::mnemonic(button->text()), Called(*control));
        for (const QWidget* other : others_)
            if (const auto* label = qobject_cast<const QLabel*>(other); label && label->buddy())
                keys << std::pair(QKeySequence::mnemonic(label->text()), Called(*label));
            else if (const auto* box = qobject_cast<const QGroupBox*>(other))
                keys << std::pair(QKeySequence::mnemonic(box->title()), Called(*box));
            else if (const auto* bar = qobject_cast<const QMenuBar*>(other))
                keys << Mnemonics(*bar);
        CheckUnique("mnemonics", keys);
        for (const QMenu* menu : form_.findChildren<QMenu*>())
            CheckUnique(menu->objectName(), Mnemonics(*menu));
    }
    static Keys Mnemonics(const QWidget& menu) {
        Keys keys;
        for (const QAction* item : menu.actions())
            keys << std::pair(QKeySequence::mnemonic(item->text()), item->text());
        return keys;
    }
    /// A key of two commands does neither.
    void CheckShortcuts() {
        Keys keys;
        for (const QAction* action : form_.findChildren<QAction*>())
            for (const QKeySequence& key : action->shortcuts())
                keys << std::pair(key, action->objectName());
        for (const QShortcut* shortcut : form_.findChildren<QShortcut*>())
            keys << std::pair(shortcut->key(), QString("QShortcut"));
        for (const QWidget* control : controls_)
            if (const auto* button = qobject_cast<const QAbstractButton*>(control))
                if (const QKeySequence key = button->shortcut(); key != QKeySequence::mnemonic(button->text()))
                    keys << std::pair(key, Called(*button));
        CheckUnique("shortcuts", keys);
    }

    static bool IsInMenu(const QAction& action) {
        const auto owners = action.associatedObjects();
        return std::any_of(owners.begin(), owners.end(), [](QObject* owner) { return qobject_cast<QMenu*>(owner); });
    }
    /// True for a control that the Tab key passes by, but another key does not.
    bool IsReachedOtherwise(const QWidget& control) const {
        if (const auto* bar = qobject_cast<const QToolBar*>(control.parentWidget())) {
            const auto actions = bar->actions();
            return std::any_of(actions.begin(), actions.end(), [&](QAction* action) {
                return bar->widgetForAction(action) == &control && (!action->shortcut().isEmpty() || IsInMenu(*action));
            });
        }
        const auto* button = qobject_cast<const QAbstractButton*>(&control);
        if (!button || !button->group() || !button->group()->exclusive())
            return false; // arrow keys go from the checked one of a group to the others
        const auto group = button->group()->buttons();
        return std::any_of(group.begin(), group.end(), [](QAbstractButton* other) { return TakesTab(*other); });
    }
    /// True for what a key of its own leads to, where Tab stays in what is beside it.
    static bool HasOwnKey(const QWidget& control) {
        const auto* button = qobject_cast<const QAbstractButton*>(&control);
        return control.findChild<QShortcut*>() || (button && qobject_cast<QStatusBar*>(control.parentWidget()) &&
                                                   !QKeySequence::mnemonic(button->text()).isEmpty());
    }
    static bool NeedsNoKeys(const QWidget& control) {
        const auto* entry = qobject_cast<const QLineEdit*>(&control);
        return (entry && entry->isReadOnly()) || qobject_cast<const QProgressBar*>(&control);
    }
    void CheckReach() {
        for (const QWidget* control : controls_)
            if (control->isEnabled() && !TakesTab(*control) && !NeedsNoKeys(*control) && !IsReachedOtherwise(*control))
                Add(Called(*control) + " is out of the keyboard's reach");
    }

    /// Every control that takes the focus, once around, from the topmost one on.
    QList<QWidget*> WalkByTab() {
        QList<QWidget*> walk;
        QWidget* at = QApplication::focusWidget();
        do {
            walk << at;
            for (int links = 0; links < kMostLinks && at == walk.last(); ++links) {
                QTest::keyClick(at, Qt::Key_Tab);
                at = QApplication::focusWidget();
            }
        } while (at && !walk.contains(at));
        if (at != walk.first())
            Add("Tab does not come around, it stays with " + (at ? Called(*at) : "nothing"));
        const auto before = [this](QWidget* a, QWidget* b) {
            const QPoint first = Place(*a).topLeft(), second = Place(*b).topLeft();
            return std::pair(first.y(), first.x()) < std::pair(second.y(), second.x());
        };
        std::rotate(walk.begin(), std::min_element(walk.begin(), walk.end(), before), walk.end());
        return walk;
    }
    /// Back to the left in one row, or up, unless a column begins to the right.
    static bool GoesBack(const QRect& from, const QRect& to) {
        const bool above = to.bottom() < from.center().y() && to.center().y() < from.top();
        const bool below = to.top() > from.center().y() && to.center().y() > from.bottom();
        return above ? to.left() <= from.right() : !below && to.right() < from.left();
    }
    /// The way on comes before the ways back and out, though it stands at the right.
    bool AreWizardButtons(const QWidget& from, const QWidget& to) const {
        return form_.objectName() == "frmWizard" && from.parentWidget() == &form_ && to.parentWidget() == &form_;
    }
    void CheckTabOrder() {
        const QList<QWidget*> walk = WalkByTab();
        for (QWidget* control : controls_)
            if (TakesTab(*control) && !walk.contains(control) && !HasOwnKey(*control))
                Add("Tab does not reach " + Called(*control));
        for (qsizetype i = 1; i < walk.size(); ++i)
            if (GoesBack(Place(*walk[i - 1]), Place(*walk[i])) && !AreWizardButtons(*walk[i - 1], *walk[i]))
                Add("Tab goes back from " + Called(*walk[i - 1]) + " to " + Called(*walk[i]));
    }

    static constexpr int kMostLinks = 200; ///< that Tab goes through within a page

    QWidget& form_;
    QList<QWidget*> controls_, others_;
    QStringList found_;
};

} // namespace velmora
