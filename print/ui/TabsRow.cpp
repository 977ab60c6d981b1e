#include "print/ui/TabsRow.h"

#include "widgets/Controls.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

namespace velmora {

TabsRow::TabsRow(QWidget* parent)
    : QWidget(parent), optTabs_(Named(new QRadioButton(tr("Ta&bs:")), "optTabs")),
      txtTabs_(Named(new QLineEdit, "txtTabs")), cboPlaces_(Named(new QComboBox, "cboPlaces")) {
    txtTabs_->setPlaceholderText("300,305-307");
    txtTabs_->setAccessibleName(tr("Tabs to print alone"));
    SetPurpose(*cboPlaces_, tr("Where the tabs come"));
    cboPlaces_->addItem(tr("From the first free label on"), static_cast<int>(TabPlaces::Flowing));
    cboPlaces_->addItem(tr("In their own places"), static_cast<int>(TabPlaces::Own));
    auto* list = new QHBoxLayout;
    list->addWidget(optTabs_);
    list->addWidget(txtTabs_, 1);
    auto* places = new QHBoxLayout;
    places->addSpacing(style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) +
                       style()->pixelMetric(QStyle::PM_RadioButtonLabelSpacing));
    places->addWidget(cboPlaces_, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(list);
    layout->addLayout(places);
    connect(txtTabs_, &QLineEdit::textEdited, this, &TabsRow::Edited);
    connect(cboPlaces_, &QComboBox::activated, this, &TabsRow::Edited);
}

void TabsRow::SetFocusPolicy(Qt::FocusPolicy policy) {
    txtTabs_->setFocusPolicy(policy);
    cboPlaces_->setFocusPolicy(policy);
}

void TabsRow::Show(const std::string& list, TabPlaces places) {
    txtTabs_->setText(QString::fromStdString(list));
    cboPlaces_->setCurrentIndex(cboPlaces_->findData(static_cast<int>(places)));
}

std::string TabsRow::List() const {
    return txtTabs_->text().toStdString();
}

TabPlaces TabsRow::Places() const {
    return static_cast<TabPlaces>(cboPlaces_->currentData().toInt());
}

} // namespace velmora
