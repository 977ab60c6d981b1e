#include "print/ui/SheetAccessible.h"

#include "print/ui/SheetDisplay.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QPointer>

#include <map>

namespace velmora {
namespace {

/// One tab of the sheet. It stands for a slot, whatever sheet is shown.
class AccessibleTab : public QAccessibleInterface {
public:
    AccessibleTab(SheetDisplay& display, int slot) : display_(&display), slot_(slot) {}

    bool isValid() const override { return display_ && slot_ <= static_cast<int>(display_->Shown().tabs.size()); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(display_); }
    QWindow* window() const override { return isValid() ? parent()->window() : nullptr; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QAccessible::Role role() const override { return QAccessible::ListItem; }
    void setText(QAccessible::Text, const QString&) override {}

    QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name || !isValid())
            return {};
        const int columns = display_->Columns();
        const QString place = QCoreApplication::translate("SheetDisplay", "Row %1, column %2")
                                  .arg((slot_ - 1) / columns + 1)
                                  .arg((slot_ - 1) % columns + 1);
        return display_->IsGone(slot_) ? QCoreApplication::translate("SheetDisplay", "%1, gone").arg(place)
                                       : place + ": " + Texts();
    }
    QRect rect() const override {
        if (!isValid())
            return {};
        const QRect inViewport = display_->SlotRect(slot_).toAlignedRect();
        return {display_->viewport()->mapToGlobal(inViewport.topLeft()), inViewport.size()};
    }
    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid())
            return state;
        state.focusable = display_->Cursor() > 0;
        state.focused = display_->hasFocus() && display_->Cursor() == slot_;
        return state;
    }

private:
    QString Texts() const {
        QStringList texts;
        for (const PlacedText& placed : display_->Shown().texts)
            if (placed.slot == slot_ && !placed.text.empty())
                texts << QString::fromUtf8(placed.text.data(), static_cast<qsizetype>(placed.text.size()));
        return texts.join(", ");
    }

    QPointer<SheetDisplay> display_;
    int slot_;
};

class AccessibleSheet : public QAccessibleWidget {
public:
    explicit AccessibleSheet(SheetDisplay& display)
        : QAccessibleWidget(&display, QAccessible::List), display_(display) {}
    ~AccessibleSheet() override {
        for (const auto& [index, id] : tabs_)
            QAccessible::deleteAccessibleInterface(id);
    }

    int childCount() const override { return static_cast<int>(display_.Shown().tabs.size()); }
    QAccessibleInterface* child(int index) const override {
        if (index < 0 || index >= childCount())
            return nullptr;
        const auto [tab, fresh] = tabs_.try_emplace(index);
        if (fresh) // the system's list of them owns it from then on
            tab->second = QAccessible::registerAccessibleInterface(new AccessibleTab(display_, index + 1));
        return QAccessible::accessibleInterface(tab->second);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        for (const auto& [index, id] : tabs_)
            if (QAccessible::accessibleInterface(id) == child)
                return index;
        return -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        for (int index = 0; index < childCount(); ++index)
            if (child(index)->rect().contains(x, y))
                return child(index);
        return nullptr;
    }
    QAccessibleInterface* focusChild() const override {
        return display_.hasFocus() ? child(display_.Cursor() - 1) : nullptr;
    }

private:
    SheetDisplay& display_;
    mutable std::map<int, QAccessible::Id> tabs_; ///< those asked for, by index
};

QAccessibleInterface* MakeAccessibleSheet(const QString&, QObject* object) {
    auto* display = qobject_cast<SheetDisplay*>(object);
    return display ? new AccessibleSheet(*display) : nullptr;
}

} // namespace

void InstallSheetAccessibility() {
    QAccessible::installFactory(MakeAccessibleSheet);
}

} // namespace velmora
