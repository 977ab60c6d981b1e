#include "app/ui/mdiVelmora.h"

#include "app/Commands.h"
#include "document/Dialogs.h"
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

/// One row of a menu; a row without a name is a separator.
struct MenuItem {
    const char* name;
    const char* caption; ///< with the mnemonic
    const char* shortcut;
    void (*command)(mdiVelmora& window, Program& program);
};

namespace {

constexpr QSize kFirstSize(1100, 720);
constexpr MenuItem kSeparator = {nullptr, nullptr, nullptr, nullptr};

struct Menu {
    const char* name;
    const char* caption;
    std::vector<MenuItem> items;
};

const std::vector<Menu>& Menus() {
    static const std::vector<Menu> menus = {
        {"mnuFile",
         "&File",
         {{"mnuNew", "&New", "Ctrl+N", [](mdiVelmora&, Program& program) { NewCommand(program.main); }},
          {"mnuOpen", "&Open", "Ctrl+O",
           [](mdiVelmora&, Program& program) {
               if (OpenCommand(program.main) == OpenOutcome::NoPrinter)
                   QApplication::quit();
           }},
          {"mnuSave", "&Save", "Ctrl+S", [](mdiVelmora&, Program& program) { SaveLabels(program.main, false); }},
          {"mnuSaveAs", "Save &as ...", "Ctrl+Shift+S",
           [](mdiVelmora&, Program& program) { SaveLabels(program.main, true); }},
          {"mnuSavePdf", "Save as P&DF ...", "",
           [](mdiVelmora&, Program& program) { SavePdfAs(program.main, program.layout, program.fontCatalogue); }},
          kSeparator,
          {"mnuExit", "E&xit", "Ctrl+Q", [](mdiVelmora& window, Program&) { window.close(); }}}},
        {"mnuData",
         "&Data",
         {{"mnuFirstPage", "&First Page", "Ctrl+PgUp", [](mdiVelmora&, Program& program) { FirstPage(program.main); }},
          {"mnuPreviousPage", "&Previous Page", "PgUp",
           [](mdiVelmora&, Program& program) { PreviousPage(program.main); }},
          {"mnuNextPage", "&Next Page", "PgDown", [](mdiVelmora&, Program& program) { NextPage(program.main); }},
          {"mnuLastPage", "&Last Page", "Ctrl+PgDown", [](mdiVelmora&, Program& program) { LastPage(program.main); }},
          kSeparator,
          {"mnuNewPage", "Ne&w Page", "Ctrl+Shift+N", [](mdiVelmora&, Program& program) { AddPage(program.main); }},
          {"mnuDeletePage", "&Delete Page", "", [](mdiVelmora&, Program& program) { DeletePage(program.main); }}}},
        {"mnuTools",
         "&Tools",
         {{"mnuDeleteEmpries", "Delete &Empty Tabs", "",
           [](mdiVelmora&, Program& program) { CleanLabels(program.main); }}}},
    };
    return menus;
}

} // namespace

mdiVelmora::mdiVelmora(Program& program) : program_(program) {
    setObjectName("mdiVelmora");
    BuildMenus();
    BuildStatusBar();
    grid_ = new frmGrid2a4(program_.main, this);
    setCentralWidget(grid_);
    resize(kFirstSize);
    program_.main.status = this;
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
    for (const Menu& row : Menus()) {
        QMenu* menu = menuBar()->addMenu(tr(row.caption));
        menu->setObjectName(row.name);
        for (const MenuItem& item : row.items)
            AddItem(menu, item);
    }
}

/// No error leaves a command: what a procedure has not trapped itself is reported here.
void mdiVelmora::AddItem(QMenu* menu, const MenuItem& item) {
    if (!item.name) {
        menu->addSeparator();
        return;
    }
    QAction* action = menu->addAction(tr(item.caption), QKeySequence(item.shortcut), this, [this, item] {
        Trapped(program_.main, std::string("Called from Sub: ") + item.name, [&] { item.command(*this, program_); });
    });
    action->setObjectName(item.name);
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

void mdiVelmora::closeEvent(QCloseEvent* event) {
    Trapped(program_.main, "Called from Sub: mnuExit", [&] { event->setAccepted(CloseCommand(program_.main)); });
}

} // namespace velmora
