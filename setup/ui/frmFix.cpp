#include "setup/ui/frmFix.h"

#include "setup/PrinterWizard.h"
#include "widgets/Controls.h"
#include "widgets/HelpRequest.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

/// Yes and No give their advice; Escape gives none.
void BuildQuestion(QDialog& dialog, UserInterface& ui, const char* question) {
    dialog.setWindowTitle(QObject::tr("Printer Setup"));
    auto* buttons = MakeButtons();
    const auto addButton = [&](QDialogButtonBox::StandardButton which, const char* name, bool othersPrint) {
        QObject::connect(Named(buttons->addButton(which), name), &QPushButton::clicked, &dialog,
                         [&dialog, &ui, othersPrint] {
                             dialog.accept();
                             TellPrinterAdvice(ui, othersPrint);
                         });
    };
    addButton(QDialogButtonBox::Yes, "cmdYes", true);
    addButton(QDialogButtonBox::No, "cmdNo", false);
    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(new QLabel(QString(question).remove('\r')));
    layout->addWidget(buttons);
}

} // namespace

frmFix1::frmFix1(MainModule& main, QWidget* parent) : PlacedDialog(main.settings, "fix1", parent) {
    setObjectName("frmFix1");
    BuildQuestion(*this, main.ui, kFix1Question);
}

frmFix2::frmFix2(MainModule& main, QWidget* parent) : PlacedDialog(main.settings, "fix2", parent) {
    setObjectName("frmFix2");
    BuildQuestion(*this, main.ui, kFix2Question);
}

} // namespace velmora
