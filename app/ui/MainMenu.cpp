#include "app/ui/MainMenu.h"

#include "app/Commands.h"
#include "app/Help.h"
#include "app/ui/frmAbout.h"
#include "app/ui/frmOptionsPage.h"
#include "document/Pages.h"
#include "document/PasteBlock.h"
#include "document/SaveDocument.h"
#include "document/ui/HelpRequest.h"
#include "editor/ui/frmFind.h"
#include "editor/ui/frmGrid2a4.h"
#include "print/PdfReport.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QWidget>

namespace velmora {
namespace {

constexpr MenuItem kSeparator = {nullptr, nullptr, nullptr, nullptr};
constexpr ToolButton kGap = {nullptr, nullptr, nullptr};

void Open(CommandContext& context) {
    if (OpenCommand(context.program.main) == OpenOutcome::NoPrinter)
        QApplication::quit();
}

void SavePdf(CommandContext& context) {
    SavePdfAs(context.program.main, context.program.layout, context.program.fontCatalogue);
}

void Exit(CommandContext& context) {
    context.window.close();
}

/// A command that is one call of the core.
template <auto operation> void Call(CommandContext& context) {
    operation(context.program.main);
}

template <SaveKind kind> void Save(CommandContext& context) {
    SaveLabels(context.program.main, kind);
}

/// What the box in use can do itself.
template <auto operation> void InBox(CommandContext&) {
    if (auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
        (box->*operation)();
}

/// A block goes into tabs from the box in use on, anything else into the box.
void Paste(CommandContext& context) {
    auto* box = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    const std::string text = QApplication::clipboard()->text().toStdString();
    if (!box)
        return;
    if (const int field = frmGrid2a4::FieldOf(*box); field >= 0 && IsBlock(text))
        PasteBlock(context.program.main, {context.program.main.document.CurrentTab, field}, text);
    else
        box->paste();
}

/// One for the window's life, so that it remembers what was looked for.
frmFind& FindForm(CommandContext& context) {
    if (auto* form = context.window.findChild<frmFind*>())
        return *form;
    return *new frmFind(context.program.main, &context.window);
}

/// Repeats the search, or asks what for.
void FindNext(CommandContext& context) {
    if (auto* form = context.window.findChild<frmFind*>(); form && form->CanFind())
        form->FindNext();
    else
        FindForm(context).Open();
}

void ShowOptions(CommandContext& context) {
    frmOptionsPage form(context.program.main, &context.window);
    form.exec();
    if (form.LostPrinter())
        QApplication::quit();
}

void ShowHelp(CommandContext& context) {
    if (!OpenHelpFile(context.program.main.settings, context.program.desktop))
        RequestHelp(context.window);
}

void ShowAbout(CommandContext& context) {
    frmAbout(context.program, &context.window).exec();
}

} // namespace

std::span<const Menu> Menus() {
    static const Menu menus[] = {
        {"mnuFile",
         "&File",
         {{"mnuNew", "&New", "Ctrl+N", Call<NewCommand>},
          {"mnuOpen", "&Open", "Ctrl+O", Open},
          {"mnuSave", "&Save", "Ctrl+S", Save<SaveKind::Save>},
          {"mnuSaveAs", "Save &as ...", "Ctrl+Shift+S", Save<SaveKind::SaveAs>},
          kSeparator,
          {"mnuImport", "&Import", "", nullptr},
          {"mnuExport", "&Export", "", Save<SaveKind::Export>},
          {"mnuSavePdf", "Save as P&DF ...", "", SavePdf},
          kSeparator,
          {"mnuPgSetup", "Page Set&up", "", nullptr},
          {"mnuPrinterSetup", "Printe&r Setup", "", nullptr},
          {"mnuMarginSetup", "&Margin Setup", "", nullptr},
          kSeparator,
          {"mnuPreview", "Pre&view", "", nullptr},
          {"mnuPrint", "&Print", "Ctrl+P", nullptr},
          {"mnuPrintPage", "Print &Current Page", "", nullptr},
          kSeparator,
          {"mnuExit", "E&xit", "Ctrl+Q", Exit}}},
        {"mnuEdit",
         "&Edit",
         {{"mnuUndo", "&Undo", "Ctrl+Z", Call<UndoChange>},
          {"mnuRedo", "&Redo", "Ctrl+Shift+Z", Call<RedoChange>},
          kSeparator,
          {"mnuCut", "Cu&t", "Ctrl+X", InBox<&QLineEdit::cut>},
          {"mnuCopy", "&Copy", "Ctrl+C", InBox<&QLineEdit::copy>},
          {"mnuPaste", "&Paste", "Ctrl+V", Paste},
          kSeparator,
          {"mnuFind", "&Find and Replace ...", "Ctrl+F", [](CommandContext& context) { FindForm(context).Open(); }},
          {"mnuFindNext", "Find &Next", "F3", FindNext}}},
        {"mnuData",
         "&Data",
         {{"mnuFirstPage", "&First Page", "Ctrl+PgUp", Call<FirstPage>},
          {"mnuPreviousPage", "&Previous Page", "PgUp", Call<PreviousPage>},
          {"mnuNextPage", "&Next Page", "PgDown", Call<NextPage>},
          {"mnuLastPage", "&Last Page", "Ctrl+PgDown", Call<LastPage>},
          kSeparator,
          {"mnuNewPage", "Ne&w Page", "Ctrl+Shift+N", Call<AddPage>},
          {"mnuDeletePage", "&Delete Page", "", Call<DeletePage>}}},
        {"mnuTools",
         "&Tools",
         {{"mnuAutoRepWiz", "&AutoRepeat Wizard", "", nullptr},
          {"mnuPrinterSetupWiz", "&Printer Setup Wizard", "", nullptr},
          kSeparator,
          {"mnuDeleteEmpries", "Delete &Empty Tabs", "", Call<CleanLabels>},
          kSeparator,
          {"mnuOptions", "&Options ...", "", ShowOptions}}},
        {"mnuHelp",
         "&Help",
         {{"mnuOptTabHelp", "&Velmorin Help", "F1", ShowHelp}, {"mnuabout", "&About ...", "", ShowAbout}}},
    };
    return menus;
}

std::span<const ToolButton> ToolButtons() {
    static constexpr ToolButton buttons[] = {
        {"new", "mnuNew", nullptr},
        {"open", "mnuOpen", nullptr},
        {"save", "mnuSave", nullptr},
        kGap,
        {"print-page", "mnuPrintPage", nullptr},
        {"print", "mnuPrint", nullptr},
        {"preview", "mnuPreview", nullptr},
        kGap,
        {"first", "mnuFirstPage", nullptr},
        {"previous", "mnuPreviousPage", nullptr},
        {"next", "mnuNextPage", nullptr},
        {"last", "mnuLastPage", nullptr},
        kGap,
        {"new-page", "mnuNewPage", nullptr},
        {"delete-page", "mnuDeletePage", nullptr},
        {"page-setup", "mnuPgSetup", nullptr},
        kGap,
        {"fonts", "tbrFonts", "Fonts"},
        {"margins", "mnuMarginSetup", nullptr},
    };
    return buttons;
}

} // namespace velmora
