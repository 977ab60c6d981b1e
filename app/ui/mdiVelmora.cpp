#include "app/ui/mdiVelmora.h"

#include "app/Commands.h"
#include "document/Pages.h"
#include "document/SaveDocument.h"
#include "editor/ui/frmGrid2a4.h"
#include "print/PdfReport.h"

#include <QApplication>
#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>

namespace velmora {
namespace {

constexpr QSize kFirstSize(1100, 720);

} // namespace

mdiVelmora::mdiVelmora(Program& program) : program_(program) {
    setObjectName("mdiVelmora");
    program_.main.status = this;
    BuildMenus();
    BuildStatusBar();
    grid_ = new frmGrid2a4(program_.main, this);
    setCentralWidget(grid_);
    resize(kFirstSize);
    // Deliberate: the stored page count starts empty with every run.
    Write(program_.main.settings, kNoOfPages, "");
    ApplyTabType(program_.main);
    ShowCaption(program_.main);
    grid_->BringUp();
}

mdiVelmora::~mdiVelmora() {
    delete grid_; // before the panels that it writes to
    program_.main.status = nullptr;
}

void mdiVelmora::BuildMenus() {
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->setObjectName("mnuFile");
    AddItem(file, "mnuNew", tr("&New"), QKeySequence::New, &mdiVelmora::New);
    AddItem(file, "mnuOpen", tr("&Open"), QKeySequence::Open, &mdiVelmora::Open);
    AddItem(file, "mnuSave", tr("&Save"), QKeySequence::Save, &mdiVelmora::Save);
    AddItem(file, "mnuSaveAs", tr("Save &as ..."), QKeySequence("Ctrl+Shift+S"), &mdiVelmora::SaveAs);
    AddItem(file, "mnuSavePdf", tr("Save as P&DF ..."), {}, &mdiVelmora::SavePdf);
    file->addSeparator();
    AddItem(file, "mnuExit", tr("E&xit"), QKeySequence("Ctrl+Q"), &mdiVelmora::Exit);
    QMenu* pages = menuBar()->addMenu(tr("&Data"));
    pages->setObjectName("mnuData");
    AddItem(pages, "mnuFirstPage", tr("&First Page"), QKeySequence("Ctrl+PgUp"), &mdiVelmora::ShowFirstPage);
    AddItem(pages, "mnuPreviousPage", tr("&Previous Page"), QKeySequence("PgUp"), &mdiVelmora::ShowPreviousPage);
    AddItem(pages, "mnuNextPage", tr("&Next Page"), QKeySequence("PgDown"), &mdiVelmora::ShowNextPage);
    AddItem(pages, "mnuLastPage", tr("&Last Page"), QKeySequence("Ctrl+PgDown"), &mdiVelmora::ShowLastPage);
    pages->addSeparator();
    AddItem(pages, "mnuNewPage", tr("Ne&w Page"), QKeySequence("Ctrl+Shift+N"), &mdiVelmora::NewPage);
    AddItem(pages, "mnuDeletePage", tr("&Delete Page"), {}, &mdiVelmora::DeleteCurrentPage);
    QMenu* tools = menuBar()->addMenu(tr("&Tools"));
    tools->setObjectName("mnuTools");
    AddItem(tools, "mnuDeleteEmpries", tr("Delete &Empty Tabs"), {}, &mdiVelmora::DeleteEmptyTabs);
}

void mdiVelmora::AddItem(QMenu* menu, const char* name, const QString& caption, const QKeySequence& shortcut,
                         void (mdiVelmora::*command)()) {
    QAction* action = menu->addAction(caption, shortcut, this, command);
    action->setObjectName(name);
}

void mdiVelmora::BuildStatusBar() {
    statusBar()->setObjectName("StatusBar1");
    statusBar()->setSizeGripEnabled(false);
    for (std::size_t i = 0; i < panels_.size(); ++i) {
        panels_[i] = new QLabel(statusBar());
        panels_[i]->setObjectName(QString("Panel%1").arg(i + 1));
        panels_[i]->setMargin(4);
        statusBar()->addWidget(panels_[i], 1);
    }
}

void mdiVelmora::SetPanel(int panel, const std::string& text) {
    panels_.at(static_cast<std::size_t>(panel - 1))->setText(QString::fromStdString(text));
}

void mdiVelmora::SetCaption(const std::string& caption) {
    setWindowTitle(QString::fromStdString(caption));
}

void mdiVelmora::New() {
    NewCommand(program_.main);
}

void mdiVelmora::Open() {
    if (OpenCommand(program_.main) == OpenOutcome::NoPrinter)
        QApplication::quit();
}

void mdiVelmora::Save() {
    SaveLabels(program_.main, false);
}

void mdiVelmora::SaveAs() {
    SaveLabels(program_.main, true);
}

void mdiVelmora::ShowFirstPage() {
    FirstPage(program_.main);
}

void mdiVelmora::ShowPreviousPage() {
    PreviousPage(program_.main);
}

void mdiVelmora::ShowNextPage() {
    NextPage(program_.main);
}

void mdiVelmora::ShowLastPage() {
    LastPage(program_.main);
}

void mdiVelmora::NewPage() {
    AddPage(program_.main);
}

void mdiVelmora::DeleteCurrentPage() {
    DeletePage(program_.main);
}

void mdiVelmora::DeleteEmptyTabs() {
    CleanLabels(program_.main);
}

void mdiVelmora::SavePdf() {
    SavePdfAs(program_.main, program_.layout, program_.fontCatalogue);
}

void mdiVelmora::Exit() {
    close();
}

void mdiVelmora::closeEvent(QCloseEvent* event) {
    SaveLabel(program_.main, program_.main.document.CurrentPage, program_.main.document.TabsPerPage);
    CloseCommand(program_.main);
    event->accept();
}

} // namespace velmora
