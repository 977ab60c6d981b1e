#include "app/ui/mdiVelmora.h"

#include "editor/ui/frmGrid2a4.h"
#include "print/PdfReport.h"

#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QStatusBar>

namespace velmora {
namespace {

constexpr QSize kFirstSize(1100, 720);

struct MenuItem {
    const char* menu;
    const char* name;
    const char* caption;
    QKeySequence shortcut;
    void (mdiVelmora::*command)();
};

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
    AddItem(file, "mnuSavePdf", tr("Save as P&DF ..."), {}, &mdiVelmora::SavePdf);
    file->addSeparator();
    AddItem(file, "mnuExit", tr("E&xit"), QKeySequence("Ctrl+Q"), &mdiVelmora::Exit);
    QMenu* data = menuBar()->addMenu(tr("&Data"));
    data->setObjectName("mnuData");
    AddItem(data, "mnuFirstPage", tr("&First Page"), QKeySequence("Ctrl+PgUp"), &mdiVelmora::ShowFirstPage);
    AddItem(data, "mnuPreviousPage", tr("&Previous Page"), QKeySequence("PgUp"), &mdiVelmora::ShowPreviousPage);
    AddItem(data, "mnuNextPage", tr("&Next Page"), QKeySequence("PgDown"), &mdiVelmora::ShowNextPage);
    AddItem(data, "mnuLastPage", tr("&Last Page"), QKeySequence("Ctrl+PgDown"), &mdiVelmora::ShowLastPage);
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

void mdiVelmora::SavePdf() {
    SavePdfAs(program_.main, program_.layout, program_.fontCatalogue);
}

void mdiVelmora::Exit() {
    close();
}

} // namespace velmora
