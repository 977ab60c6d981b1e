#include "print/ui/JobChoice.h"

#include "print/PrintRun.h"
#include "widgets/Controls.h"

#include <QFormLayout>
#include <QSpinBox>
#include <QTimer>

namespace velmora {
namespace {

constexpr int kLettersShown = 10; // the names of trays must not widen the panel

std::string Chosen(const QComboBox* box) {
    return box ? box->currentData().toString().toStdString() : "";
}

} // namespace

JobChoice::JobChoice(const PrintRun& run, QWidget* parent)
    : QWidget(parent), run_(run), rows_(new QFormLayout(this)), txtCopies_(Named(new QSpinBox, "txtCopies")) {
    rows_->setContentsMargins(0, 0, 0, 0);
    rows_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    txtCopies_->setRange(1, kMostCopies);
    rows_->addRow(tr("Cop&ies:"), txtCopies_);
    QTimer::singleShot(0, this, &JobChoice::AskPrinter);
}

/// No rows for a printer that lists one tray or kind alone.
void JobChoice::AskPrinter() {
    const PaperSources sources = run_.Sources();
    cboTray_ = AddSources(tr("T&ray:"), "cboTray", sources.trays);
    cboKind_ = AddSources(tr("Paper &kind:"), "cboKind", sources.kinds);
}

QComboBox* JobChoice::AddSources(const QString& label, const char* name, const std::vector<PaperSource>& sources) {
    if (sources.size() < 2)
        return nullptr;
    auto* box = Named(new QComboBox, name);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kLettersShown);
    box->addItem(tr("As set up"), QString());
    for (const PaperSource& source : sources)
        box->addItem(QString::fromStdString(source.label), QString::fromStdString(source.name));
    QWidget* const above = rows_->itemAt(rows_->rowCount() - 1, QFormLayout::FieldRole)->widget();
    rows_->addRow(label, box);
    setTabOrder(above, box);
    return box;
}

JobOptions JobChoice::Options() const {
    return {txtCopies_->value(), Chosen(cboTray_), Chosen(cboKind_)};
}

} // namespace velmora
