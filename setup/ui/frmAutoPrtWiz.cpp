#include "setup/ui/frmAutoPrtWiz.h"

#include "setup/PrinterWizard.h"
#include "setup/ui/frmFix.h"
#include "widgets/Controls.h"
#include "widgets/TabPicture.h"
#include "widgets/WizardFrame.h"
#include "workspace/Dialogs.h"

#include <QButtonGroup>
#include <QCoreApplication>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace velmora {
namespace {

/// One run of the wizard, which outlives its pages.
struct Run {
    MainModule& main;
    const std::function<void(std::int32_t)>& printTestPage;
    WizardFrame& frame;
    PrinterWizard wizard{main};
    bool chosen = false; ///< anything, since the wizard came up
};

QString Translated(const char* text) {
    return QCoreApplication::translate("frmAutoPrtWiz", text);
}

/// The chosen stationery on the left; Finish on every page, so that nobody has to walk through them all.
class PrinterForm : public WizardForm {
public:
    PrinterForm(Run& run, const char* name, const char* key, const QString& heading)
        : WizardForm(name, key), run_(run), Image1_(Named(new QLabel, "Image1")) {
        Image1_->setMinimumSize(kStationeryRoom);
        Image1_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
        PictureColumn().setContentsMargins(0, 0, kColumnGap, 0);
        PictureColumn().addWidget(Image1_);
        SetHeading(heading);
        ShowStationery();
        SetButton(WizardButton::Finish, run_.wizard.CanFinish());
    }

    bool Cancel() override {
        return !run_.chosen ||
               Ask(run_.main.ui, "Do you want to leave the wizard without keeping what you have chosen?",
                   Buttons::YesNo) == Answer::Yes;
    }
    void Finish() override {
        if (run_.wizard.Finish())
            run_.frame.accept();
    }

protected:
    void ShowStationery() {
        const TabType* type = FindTabType(run_.wizard.TabType());
        Image1_->setPixmap(LoadTabPicture(run_.main, std::string(type->picture)));
    }
    /// Whose margins are in use, below what is there.
    void AddMargins() {
        lblMargins_ = new AnswerLabel;
        lblMargins_->setObjectName("lblMargins");
        lblMargins_->setWordWrap(true);
        lblMargins_->setTextFormat(Qt::PlainText);
        lblMargins_->setMinimumHeight(2 * fontMetrics().lineSpacing());
        lblMargins_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        Content().addWidget(lblMargins_);
        lblMargins_->setText(MarginsText());
    }
    /// Something else was chosen.
    void Chosen() {
        run_.chosen = true;
        lblMargins_->Say(MarginsText());
    }
    template <typename Page> void Go() { run_.frame.ShowPage(std::make_unique<Page>(run_)); }
    /// A button below what is there.
    QPushButton* AddButton(const char* name, const QString& caption) {
        auto* button = Named(new QPushButton(caption), name);
        button->setAutoDefault(false);
        Content().addWidget(button, 0, Qt::AlignLeft);
        return button;
    }

    Run& run_;

private:
    static constexpr int kColumnGap = 24;

    QString MarginsText() const { return QString::fromStdString(run_.wizard.MarginsText()); }

    QLabel* Image1_;
    AnswerLabel* lblMargins_ = nullptr;
};

struct frmAutoPrtWiz1 : PrinterForm {
    explicit frmAutoPrtWiz1(Run& run);
    void Next() override;
    QWidget* FirstFocus() override { return lstPrinters_; }

    QListWidget* lstPrinters_ = Named(new QListWidget, "lstPrinters");
};

struct frmAutoPrtWiz2 : PrinterForm {
    explicit frmAutoPrtWiz2(Run& run);
    void Previous() override { Go<frmAutoPrtWiz1>(); }
    void Next() override;
    QWidget* FirstFocus() override { return optStationery_->checkedButton(); }

    QWidget* BuildStationery();
    QWidget* BuildLayouts();
    void ShowLayout();

    QButtonGroup* optStationery_ = new QButtonGroup(this); ///< ids: tab types
    QButtonGroup* optLayout_ = new QButtonGroup(this);     ///< ids: indexes of kLayouts
    QGroupBox* layouts_ = nullptr;
};

struct frmAutoPrtWiz3 : PrinterForm {
    explicit frmAutoPrtWiz3(Run& run);
    void Previous() override { Go<frmAutoPrtWiz2>(); }
    void Next() override;
};

struct frmAutoPrtWiz4 : PrinterForm {
    explicit frmAutoPrtWiz4(Run& run);
    void Previous() override { Go<frmAutoPrtWiz3>(); }
    void Next() override;
};

struct frmAutoPrtWiz5 : PrinterForm {
    explicit frmAutoPrtWiz5(Run& run);
    void Previous() override { Go<frmAutoPrtWiz4>(); }
};

frmAutoPrtWiz1::frmAutoPrtWiz1(Run& run)
    : PrinterForm(run, "frmAutoPrtWiz1", "PrtWiz1", Translated("Which printer prints the tabs?")) {
    SetButton(WizardButton::Next, run.wizard.CanFinish());
    for (const InstalledPrinter& printer : run.wizard.Printers()) {
        const QString name = QString::fromStdString(printer.name);
        lstPrinters_->addItem(printer.isDefault ? Translated("%1 (default)").arg(name) : name);
        if (printer.name == run.wizard.Printer())
            lstPrinters_->setCurrentRow(lstPrinters_->count() - 1);
    }
    lstPrinters_->setAccessibleName(Translated("Printers of this machine"));
    AddQuestion(Translated("P&rinters of this machine:"), lstPrinters_);
    connect(lstPrinters_, &QListWidget::currentRowChanged, this, [this](int row) {
        run_.wizard.ChoosePrinter(run_.wizard.Printers().at(static_cast<std::size_t>(row)).name);
        Chosen();
    });
    AddMargins();
}

void frmAutoPrtWiz1::Next() {
    Go<frmAutoPrtWiz2>();
}

constexpr std::array<const char*, 2> kLayouts = {"DL_v", "DL_h"};
constexpr std::array<const char*, 2> kLayoutCaptions = {"&Short edge first (DL_v)", "&Long edge first (DL_h)"};

frmAutoPrtWiz2::frmAutoPrtWiz2(Run& run)
    : PrinterForm(run, "frmAutoPrtWiz2", "PrtWiz2", Translated("Which stationery do you print on?")) {
    SetButton(WizardButton::Previous);
    SetButton(WizardButton::Next);
    Content().addWidget(BuildStationery());
    Content().addWidget(BuildLayouts());
    ShowLayout();
    AddMargins();
    connect(optStationery_, &QButtonGroup::idClicked, this, [this](int type) {
        run_.wizard.ChooseType(type);
        Chosen();
        ShowStationery();
        ShowLayout();
    });
    connect(optLayout_, &QButtonGroup::idClicked, this, [this](int layout) {
        run_.wizard.ChooseLayout(kLayouts.at(static_cast<std::size_t>(layout)));
        Chosen();
    });
}

QWidget* frmAutoPrtWiz2::BuildStationery() {
    auto* box = new QWidget;
    auto* layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const std::string& label : PrinterWizard::StationeryLabels()) {
        const int type = static_cast<int>(optStationery_->buttons().size());
        auto* option = new QRadioButton(QString::fromStdString(label));
        option->setObjectName(QString("optStationery(%1)").arg(type));
        option->setChecked(type == run_.wizard.TabType());
        optStationery_->addButton(option, type);
        layout->addWidget(option);
    }
    return box;
}

QWidget* frmAutoPrtWiz2::BuildLayouts() {
    layouts_ = new QGroupBox(Translated("How a DL sheet goes into the printer"));
    auto* layout = new QVBoxLayout(layouts_);
    for (std::size_t i = 0; i < kLayouts.size(); ++i) {
        auto* option = new QRadioButton(Translated(kLayoutCaptions[i]));
        option->setObjectName(QString("optLayout(%1)").arg(i));
        optLayout_->addButton(option, static_cast<int>(i));
        layout->addWidget(option);
    }
    return layouts_;
}

/// A sheet of A4 has one way only.
void frmAutoPrtWiz2::ShowLayout() {
    layouts_->setEnabled(run_.wizard.HasLayouts());
    optLayout_->button(run_.wizard.Layout() == kLayouts[1] ? 1 : 0)->setChecked(true);
}

void frmAutoPrtWiz2::Next() {
    Go<frmAutoPrtWiz3>();
}

frmAutoPrtWiz3::frmAutoPrtWiz3(Run& run)
    : PrinterForm(run, "frmAutoPrtWiz3", "PrtWiz3", Translated("Print a test page")) {
    SetButton(WizardButton::Previous);
    SetButton(WizardButton::Next);
    AddText(Translated("Put one sheet of the stationery into the printer and print the test page: one sheet with a "
                       "text on every tab."));
    connect(AddButton("cmdTestPage", Translated("Print &Test Page")), &QPushButton::clicked, this, [this] {
        Trapped(run_.main.ui, "Called from Sub: cmdTestPage",
                [this] { run_.wizard.PrintTestPage(run_.printTestPage); });
    });
    AddMargins();
    AddText(Translated("Where the texts are shifted only a little, finish the wizard and set the margins with File > "
                       "Margin Setup."));
}

void frmAutoPrtWiz3::Next() {
    Go<frmAutoPrtWiz4>();
}

frmAutoPrtWiz4::frmAutoPrtWiz4(Run& run)
    : PrinterForm(run, "frmAutoPrtWiz4", "PrtWiz", Translated("Did the test page come out right?")) {
    SetButton(WizardButton::Previous);
    SetButton(WizardButton::Next);
    AddText(Translated("If it did, finish the wizard. If it did not, say what went wrong:"));
    connect(AddButton("cmdFix1", Translated("The test page did not come &out ...")), &QPushButton::clicked, this,
            [this] { frmFix1(run_.main, &run_.frame).exec(); });
    connect(AddButton("cmdFix2", Translated("It came out on other p&aper ...")), &QPushButton::clicked, this,
            [this] { frmFix2(run_.main, &run_.frame).exec(); });
    AddText(Translated("If the labels were printed upside-down, go on to the next page."));
}

void frmAutoPrtWiz4::Next() {
    Go<frmAutoPrtWiz5>();
}

frmAutoPrtWiz5::frmAutoPrtWiz5(Run& run)
    : PrinterForm(run, "frmAutoPrtWiz5", "PrtWiz5", Translated("Labels that were printed upside-down")) {
    SetButton(WizardButton::Previous);
    AddText(Translated(kUpsideDownAdvice));
}

} // namespace

void RunPrinterWizard(MainModule& main, const std::function<void(std::int32_t)>& printTestPage, QWidget* parent) {
    auto* frame = new WizardFrame(main, Translated("Printer Setup Wizard"), parent);
    Run run{main, printTestPage, *frame};
    frame->ShowPage(std::make_unique<frmAutoPrtWiz1>(run));
    frame->exec(); // which deletes it
}

} // namespace velmora
