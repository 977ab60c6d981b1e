#include "app/ui/frmAbout.h"

#include "app/SystemInformation.h"
#include "base/Version.h"
#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

constexpr int kImageSize = 64;

QLabel* AddLabel(QLayout* layout, const char* name, const QString& text) {
    auto* label = new QLabel(text);
    label->setObjectName(name);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    layout->addWidget(label);
    return label;
}

void AddLine(QLayout* layout, int index) {
    auto* line = new QFrame;
    line->setObjectName(QString("Line1(%1)").arg(index));
    line->setFrameStyle(QFrame::HLine | QFrame::Sunken);
    layout->addWidget(line);
}

void Enlarge(QLabel* label) {
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * 1.8);
    font.setBold(true);
    label->setFont(font);
}

} // namespace

frmAbout::frmAbout(Program& program, QWidget* parent)
    : PlacedDialog(program.main.settings, "about", parent), program_(program) {
    setObjectName("frmAbout");
    setWindowTitle(tr("About %1").arg(QString::fromStdString(program.main.settings.SettingsAppName)));
    BuildUi();
}

void frmAbout::BuildUi() {
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(BuildHeader());
    AddLine(layout, 0);
    AddLabel(layout, "lblAbout", tr("Designs and prints filing tabs."));
    AddLine(layout, 1);
    AddLabel(layout, "Label1", tr("Made by Corvane Series."));
    AddLabel(layout, "Label2", tr("Customer care and support: Quenmark."));
    AddLine(layout, 2);
    AddLabel(layout, "Label3", tr("F1 explains the window in use."));
    AddLabel(layout, "Label4", tr("With a question, please send the version above and the text of the message."));
    AddLine(layout, 3);
    AddLabel(layout, "Label5", tr("Under the MIT licence: use it, change it, pass it on."));
    AddLabel(layout, "Label6", tr("It comes without any warranty."));
    layout->addSpacing(8);
    txtDetails_ = new QPlainTextEdit;
    txtDetails_->setObjectName("txtDetails");
    txtDetails_->setAccessibleName(tr("Details"));
    txtDetails_->setReadOnly(true);
    txtDetails_->setTabChangesFocus(true);
    txtDetails_->hide();
    layout->addWidget(txtDetails_, 1);
    layout->addStretch();
    layout->addLayout(BuildButtons());
    findChild<QPushButton*>("cmdOk")->setFocus();
}

QLayout* frmAbout::BuildHeader() {
    auto* image = new QLabel;
    image->setObjectName("Image1");
    image->setPixmap(QApplication::windowIcon().pixmap(QSize(kImageSize, kImageSize), devicePixelRatioF()));
    auto* texts = new QVBoxLayout;
    Enlarge(AddLabel(texts, "lblTitle", QString::fromStdString(program_.main.settings.SettingsAppName)));
    auto* version = AddLabel(texts, "lblVersion", QString("Version number:") + kVersion);
    version->setTextInteractionFlags(version->textInteractionFlags() | Qt::TextSelectableByKeyboard);
    version->setFocusPolicy(Qt::StrongFocus); // to be copied without a mouse too
    auto* header = new QHBoxLayout;
    header->addWidget(image);
    header->addLayout(texts, 1);
    return header;
}

QLayout* frmAbout::BuildButtons() {
    auto* sysInfo = new QPushButton(tr("&System Info..."));
    sysInfo->setObjectName("cmdSysInfo");
    sysInfo->setAutoDefault(false);
    connect(sysInfo, &QPushButton::clicked, this, [this] {
        Trapped(program_.main.ui, "Called from Sub: StartSysInfo",
                [&] { StartSysInfo(program_.main, *program_.desktop); });
    });
    cmdDetails_ = new QPushButton(tr("&Details"));
    cmdDetails_->setObjectName("cmdDetails");
    cmdDetails_->setAutoDefault(false);
    connect(cmdDetails_, &QPushButton::clicked, this, &frmAbout::ShowDetails);
    auto* ok = new QPushButton(tr("OK"));
    ok->setObjectName("cmdOk");
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(MakeHelpButton());
    buttons->addWidget(sysInfo);
    buttons->addWidget(cmdDetails_);
    buttons->addStretch();
    buttons->addWidget(ok);
    return buttons;
}

/// The first press shows them; from then on the button copies them. Asking the printers may take a moment, so nobody
/// waits for that before.
void frmAbout::ShowDetails() {
    if (txtDetails_->isVisible())
        return QApplication::clipboard()->setText(txtDetails_->toPlainText());
    const QString desktop = QSysInfo::prettyProductName() + ", " + QGuiApplication::platformName() + " " +
                            qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    txtDetails_->setPlainText(QString::fromStdString(ProgramDetails(
        program_.main, {program_.Title, std::string("Qt ") + qVersion(), desktop.trimmed().toStdString()})));
    txtDetails_->show();
    cmdDetails_->setText(tr("&Copy"));
    txtDetails_->setFocus();
    adjustSize();
}

} // namespace velmora
