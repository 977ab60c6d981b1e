#include "setup/ui/frmPageSetUp.h"

#include "setup/ui/frmAutoPrtWiz.h"
#include "widgets/AnswerLabel.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"
#include "widgets/TabPicture.h"
#include "workspace/Dialogs.h"

#include <QButtonGroup>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kLinesOfTexts = 3;
constexpr int kNameGap = 24; ///< pixels between rows and columns and the name

} // namespace

frmPageSetUp::frmPageSetUp(MainModule& main, std::function<void(std::int32_t)> printTestPage, QWidget* parent)
    : PlacedDialog(main.settings, "Page Setup Wiz", parent), main_(main), setup_(main),
      printTestPage_(std::move(printTestPage)) {
    setObjectName("frmPageSetUp");
    setWindowTitle(tr("Page Setup"));
    BuildUi();
}

QWidget* frmPageSetUp::BuildStationery() {
    auto* box = new QGroupBox(tr("Stationery"));
    auto* layout = new QGridLayout(box);
    optPgsize_ = new QButtonGroup(this);
    const auto text = [](std::string_view of) { return QString::fromUtf8(of.data(), static_cast<int>(of.size())); };
    for (int type = 0; type < kTabTypes; ++type) {
        const TabType& row = kCatalogue.at(static_cast<std::size_t>(type));
        auto* option = new QRadioButton(text(row.caption));
        option->setObjectName(QString("optPgsize(%1)").arg(type));
        option->setAccessibleDescription(text(row.label));
        optPgsize_->addButton(option, type);
        layout->addWidget(option, type, 0);
        layout->addWidget(new QLabel(text(row.label).section(" (", 0, 0)), type, 1); // as it stands on the box
    }
    layout->setRowStretch(kTabTypes, 1);
    layout->setHorizontalSpacing(kNameGap);
    return box;
}

/// The samples stand as the fields of a tab do: the first over its whole width, the others below.
QWidget* frmPageSetUp::BuildFields() {
    auto* box = new QGroupBox(tr("Fields per tab"));
    auto* layout = new QVBoxLayout(box);
    optField_ = new QButtonGroup(this);
    const std::array<QString, kFieldsPerTab> captions = {tr("&1 field"), tr("&2 fields"), tr("&3 fields")};
    auto* options = new QHBoxLayout;
    auto* line = new QHBoxLayout;
    for (int field = 0; field < kFieldsPerTab; ++field) {
        const auto index = static_cast<std::size_t>(field);
        auto* option = new QRadioButton(captions[index]);
        option->setObjectName(QString("optField%1").arg(field + 1));
        optField_->addButton(option, field + 1);
        options->addWidget(option);
        txtField_[index] = new QLineEdit(tr("Field %1").arg(QChar('A' + field)));
        txtField_[index]->setObjectName(QString("txtField%1").arg(field + 1));
        txtField_[index]->setAccessibleName(tr("Place of field %1").arg(QChar('A' + field)));
        txtField_[index]->setReadOnly(true);
        txtField_[index]->setFocusPolicy(Qt::NoFocus);
        if (field > 0)
            line->addWidget(txtField_[index]);
    }
    QSizePolicy kept = txtField_[1]->sizePolicy();
    kept.setRetainSizeWhenHidden(true);
    txtField_[1]->setSizePolicy(kept);
    layout->addLayout(options);
    layout->addWidget(txtField_[0]);
    layout->addLayout(line);
    return box;
}

void frmPageSetUp::BuildUi() {
    Image1_ = Named(new QLabel, "Image1");
    Image1_->setMinimumSize(kStationeryRoom);
    Image1_->setAlignment(Qt::AlignCenter);
    lblGridSize_ = Named(new QLabel, "lblGridSize");
    lblGridSize_->setAlignment(Qt::AlignCenter);
    auto* buttons = MakeButtons();
    auto* cmdOk = Named(buttons->addButton(QDialogButtonBox::Ok), "cmdOk");
    Named(buttons->addButton(QDialogButtonBox::Cancel), "cmdCancel");
    auto* cmdPrtWiz = Named(new QPushButton(tr("&Printer Setup Wizard ...")), "cmdPrtWiz");

    lblTexts_ = Named(new AnswerLabel, "lblTexts");
    lblTexts_->setWordWrap(true);
    lblTexts_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    lblTexts_->setMinimumHeight(kLinesOfTexts * fontMetrics().lineSpacing());

    auto* preview = new QVBoxLayout;
    preview->addWidget(Image1_);
    preview->addWidget(lblGridSize_);
    preview->addStretch();
    auto* layout = new QGridLayout(this);
    layout->addWidget(BuildStationery(), 0, 0);
    layout->addWidget(BuildFields(), 1, 0);
    layout->addLayout(preview, 0, 1, 2, 1);
    layout->addWidget(lblTexts_, 2, 0, 1, 2);
    layout->addWidget(cmdPrtWiz, 3, 0, Qt::AlignLeft);
    layout->addWidget(buttons, 3, 1);
    layout->setColumnStretch(1, 1);
    layout->setRowStretch(0, 1);
    cmdOk->setDefault(true); // in the dialog by now

    connect(optPgsize_, &QButtonGroup::idClicked, this, [this](int type) {
        setup_.ChooseType(type);
        ShowType();
    });
    connect(optField_, &QButtonGroup::idClicked, this, [this](int fields) {
        setup_.ChooseFields(fields);
        ShowFields();
    });
    connect(cmdPrtWiz, &QPushButton::clicked, this, &frmPageSetUp::OpenPrinterWizard);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(this, &QDialog::rejected, this, [this] { setup_.Cancel(); });
    connect(this, &QDialog::accepted, this,
            [this] { Trapped(main_.ui, "Called from Sub: cmdOk", [this] { setup_.Ok(); }); });
}

LoadOutcome frmPageSetUp::Run() {
    if (Open())
        exec();
    return outcome_;
}

/// Shows the document's own state; false when the program must end.
bool frmPageSetUp::Open() {
    outcome_ = setup_.Open();
    if (outcome_ == LoadOutcome::NoPrinter)
        return false;
    optPgsize_->button(setup_.TabType())->setChecked(true);
    optPgsize_->button(setup_.TabType())->setFocus();
    optField_->button(setup_.Fields())->setChecked(true);
    ShowType();
    ShowFields();
    return true;
}

void frmPageSetUp::ShowType() {
    Image1_->setPixmap(LoadTabPicture(main_, setup_.Picture()));
    lblGridSize_->setText(QString::fromStdString(setup_.GridSizeText()));
    lblTexts_->Say(QString::fromStdString(setup_.WhatBecomesOfTexts()));
}

void frmPageSetUp::ShowFields() {
    for (int field = 0; field < kFieldsPerTab; ++field) {
        QLineEdit* sample = txtField_[static_cast<std::size_t>(field)];
        sample->setVisible(setup_.SampleShown(field));
        sample->setAlignment(BoxAlignment(setup_.SampleAlignment(field)));
    }
}

/// The wizard may have changed the document.
void frmPageSetUp::OpenPrinterWizard() {
    bool open = false;
    Trapped(main_.ui, "Called from Sub: cmdPrtWiz", [&] {
        RunPrinterWizard(main_, printTestPage_, this);
        open = Open();
    });
    if (!open)
        reject();
}

} // namespace velmora
