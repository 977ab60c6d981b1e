#include "app/ui/MainMenu.h"

#include "app/Commands.h"
#include "app/Help.h"
#include "app/ui/SetupForms.h"
#include "app/ui/frmAbout.h"
#include "app/ui/frmOptionsPage.h"
#include "base/Numbers.h"
#include "base/Text.h"
#include "editor/ui/PageStrip.h"
#include "editor/ui/frmFind.h"
#include "editor/ui/frmGoTo.h"
#include "editor/ui/frmGrid2a4.h"
#include "editor/ui/frmMovePage.h"
#include "editor/ui/frmRemoveDuplicates.h"
#include "editor/ui/frmSort.h"
#include "print/PrintReport.h"
#include "print/SendSheets.h"
#include "widgets/HelpRequest.h"
#include "wizard/ui/OpenAutoRepWiz.h"
#include "workspace/ArrangePages.h"
#include "workspace/ArrangeTabs.h"
#include "workspace/CopyTabs.h"
#include "workspace/Globals.h"
#include "workspace/Pages.h"
#include "workspace/PasteBlock.h"
#include "workspace/SaveDocument.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QWidget>

namespace velmora {
namespace {

constexpr MenuItem kSeparator = {nullptr, nullptr, nullptr, nullptr};
constexpr ToolButton kGap = {nullptr, nullptr};

template <OpenKind kind> void Open(CommandContext& context) {
    if (OpenCommand(context.program.main, kind) == OpenOutcome::NoPrinter)
        QApplication::exit();
}

template <auto command> void Print(CommandContext& context) {
    if (command(context.program.print) == PrintOutcome::NoPrinter)
        QApplication::exit();
}

void SavePdf(CommandContext& context) {
    SavePdfAs(context.program.main, context.program.layout, context.program.fontCatalogue);
}

template <frmAutoRepWiz::Start start> void Wizard(CommandContext& context) {
    OpenAutoRepWiz(context.program.main, context.program.fontCatalogue, start, &context.window);
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

QLineEdit* BoxInUse(const CommandContext& context) {
    return qobject_cast<QLineEdit*>(context.window.focusWidget());
}

frmGrid2a4& Grid(CommandContext& context) {
    return *context.window.findChild<frmGrid2a4*>();
}

template <auto inBox, auto onTabs> void InBoxOrTabs(CommandContext& context) {
    if (IsForTabs(context))
        onTabs(context.program.main);
    else if (QLineEdit* box = BoxInUse(context))
        (box->*inBox)();
}

template <std::string (*operation)(MainModule&)> void ToClipboard(MainModule& main) {
    if (const std::string text = operation(main); !text.empty())
        QApplication::clipboard()->setText(QString::fromStdString(text));
}

/// Whole tabs and a block of cells go into tabs, anything else into the box in use.
void Paste(CommandContext& context) {
    QLineEdit* box = BoxInUse(context);
    const int field = box ? frmGrid2a4::FieldOf(*box) : 0;
    const std::string text = QApplication::clipboard()->text().toStdString();
    if (field >= 0 && (Grid(context).HasMarks() || IsBlock(text)))
        PasteBlock(context.program.main, field, text);
    else if (box)
        box->insert(QString::fromStdString(OneLine(CellText(text))));
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

template <typename Form> void ShowModal(CommandContext& context) {
    Form(context.program.main, &context.window).exec();
}

void SetUpPage(CommandContext& context) {
    if (ShowPageSetup(context.program, &context.window) == LoadOutcome::NoPrinter)
        QApplication::exit();
}

/// The toolbar's way: from the first page on.
void SetUpFirstPage(CommandContext& context) {
    FirstPage(context.program.main);
    SetUpPage(context);
}

void SetUpMargins(CommandContext& context) {
    ShowMarginSetup(context.program, &context.window);
}

void SetUpPrinter(CommandContext& context) {
    ShowPrinterSetup(context.program, &context.window);
}

void TogglePageStrip(CommandContext& context) {
    auto* strip = context.window.findChild<PageStrip*>();
    strip->setVisible(strip->isHidden());
    Write(context.program.main.settings, kPageStrip, FlagText(!strip->isHidden()));
}

void ShowOptions(CommandContext& context) {
    frmOptionsPage form(context.program.main, &context.window);
    form.exec();
    if (form.LostPrinter())
        QApplication::exit();
}

void ShowHelp(CommandContext& context) {
    if (!OpenHelpFile(context.program.main.settings, *context.program.desktop))
        RequestHelp(context.window);
}

void ShowAbout(CommandContext& context) {
    frmAbout(context.program, &context.window).exec();
}

} // namespace

const SettingKey kPageStrip = {"Settings", "Page Strip", "True", IsFlag};

bool IsForTabs(const CommandContext& context) {
    const frmGrid2a4& sheet = *context.window.findChild<frmGrid2a4*>();
    const QLineEdit* box = BoxInUse(context);
    return sheet.isAncestorOf(context.window.focusWidget()) && (sheet.HasMarks() || !box || !box->hasSelectedText());
}

namespace {

Menu FileMenu() {
    return {"mnuFile",
            "&File",
            {{"mnuNew", "&New", "Ctrl+N", Call<NewCommand>},
             {"mnuOpen", "&Open", "Ctrl+O", Open<OpenKind::Open>},
             {"mnuSave", "&Save", "Ctrl+S", Save<SaveKind::Save>},
             {"mnuSaveAs", "Save &as ...", "Ctrl+Shift+S", Save<SaveKind::SaveAs>},
             kSeparator,
             {"mnuImport", "&Import", "", Open<OpenKind::Import>},
             {"mnuExport", "&Export", "", Save<SaveKind::Export>},
             {"mnuSavePdf", "Save as P&DF ...", "", SavePdf},
             kSeparator,
             {"mnuPgSetup", "Page Set&up", "", SetUpPage},
             {"mnuPrinterSetup", "Prin&ter Setup", "", SetUpPrinter},
             {"mnuMarginSetup", "&Margin Setup", "", SetUpMargins},
             kSeparator,
             {"mnuPreview", "Pre&view", "Ctrl+Shift+P", Print<PreviewCommand>},
             {"mnuPrint", "&Print", "Ctrl+P", Print<PrintCommand>},
             {"mnuPrintPage", "Print &Current Page", "", Print<PrintPageCommand>},
             kSeparator,
             {"mnuExit", "E&xit", "Ctrl+Q", Exit}}};
}

Menu EditMenu() {
    return {
        "mnuEdit",
        "&Edit",
        {{"mnuUndo", "&Undo", "Ctrl+Z", Call<UndoChange>},
         {"mnuRedo", "&Redo", "Ctrl+Shift+Z", Call<RedoChange>},
         kSeparator,
         {"mnuCut", "Cu&t", "Ctrl+X", InBoxOrTabs<&QLineEdit::cut, ToClipboard<CutTabs>>},
         {"mnuCopy", "&Copy", "Ctrl+C", InBoxOrTabs<&QLineEdit::copy, ToClipboard<CopyTabs>>},
         {"mnuPaste", "&Paste", "Ctrl+V", Paste},
         {"mnuDelete", "&Delete", "Del", InBoxOrTabs<&QLineEdit::del, DeleteTabs>},
         {"mnuSelectAll", "Select &All Tabs", "Ctrl+A", [](CommandContext& context) { Grid(context).MarkAllTabs(); }},
         kSeparator,
         {"mnuInsertTab", "&Insert Tab", "Ctrl+I", Call<InsertTabs>},
         {"mnuRemoveTab", "Re&move Tab", "Ctrl+Shift+Del", Call<RemoveTabs>},
         {"mnuMoveUp", "Mo&ve Up", "Ctrl+Shift+Up", Call<MoveTabsUp>},
         {"mnuMoveDown", "Move Do&wn", "Ctrl+Shift+Down", Call<MoveTabsDown>},
         {"mnuFillDown", "Fi&ll Down", "Ctrl+D", Call<FillDown>},
         kSeparator,
         {"mnuFind", "&Find and Replace ...", "Ctrl+F", [](CommandContext& context) { FindForm(context).Open(); }},
         {"mnuFindNext", "Find &Next", "F3", FindNext},
         kSeparator,
         {"mnuPrintTabs", "Print T&hese Tabs ...", "Ctrl+Alt+P", Print<PrintTabsCommand>}}};
}

Menu ViewMenu() {
    return {
        "mnuView",
        "&View",
        {{"mnuFitSheet", "Fit &Sheet", "Ctrl+0", [](CommandContext& context) { Grid(context).SetZoom({}); }},
         {"mnuFitWidth", "Fit &Width", "", [](CommandContext& context) { Grid(context).SetZoom({GridFit::Width}); }},
         {"mnuZoomIn", "Zoom &In", "Ctrl++", [](CommandContext& context) { Grid(context).StepZoom(1); }},
         {"mnuZoomOut", "Zoom &Out", "Ctrl+-", [](CommandContext& context) { Grid(context).StepZoom(-1); }},
         kSeparator,
         {"mnuPageStrip", "&Page Strip", "F9", TogglePageStrip}}};
}

Menu DataMenu() {
    return {"mnuData",
            "&Data",
            {{"mnuFirstPage", "&First Page", "Ctrl+PgUp", Call<FirstPage>},
             {"mnuPreviousPage", "&Previous Page", "PgUp", Call<PreviousPage>},
             {"mnuNextPage", "&Next Page", "PgDown", Call<NextPage>},
             {"mnuLastPage", "&Last Page", "Ctrl+PgDown", Call<LastPage>},
             kSeparator,
             {"mnuNewPage", "Ne&w Page", "Ctrl+Shift+N", Call<AddPage>},
             {"mnuDeletePage", "&Delete Page", "", Call<DeletePage>},
             kSeparator,
             {"mnuInsertPage", "&Insert Page", "", Call<InsertPage>},
             {"mnuDuplicatePage", "D&uplicate Page", "", Call<DuplicatePage>},
             {"mnuMovePage", "&Move Page ...", "", ShowModal<frmMovePage>},
             kSeparator,
             {"mnuGoTo", "&Go to Page or Tab ...", "Ctrl+G", ShowModal<frmGoTo>},
             {"mnuSort", "&Sort ...", "", ShowModal<frmSort>},
             {"mnuRemoveDuplicates", "&Remove Duplicates ...", "", ShowModal<frmRemoveDuplicates>}}};
}

Menu ToolsMenu() {
    return {"mnuTools",
            "&Tools",
            {{"mnuAutoRepWiz", "&AutoRepeat Wizard", "", Wizard<frmAutoRepWiz::Start::Wizard>},
             {"mnuPrinterSetupWiz", "&Printer Setup Wizard", "", SetUpPrinter},
             kSeparator,
             {"mnuDeleteEmpries", "Delete &Empty Tabs", "", Call<CleanLabels>},
             {"mnuFonts", "&Fonts ...", "Ctrl+T", Wizard<frmAutoRepWiz::Start::Fonts>},
             kSeparator,
             {"mnuOptions", "&Options ...", "", ShowOptions}}};
}

Menu HelpMenu() {
    return {"mnuHelp",
            "&Help",
            {{"mnuOptTabHelp", "&Velmorin Help", "F1", ShowHelp}, {"mnuabout", "&About ...", "", ShowAbout}}};
}

} // namespace

std::span<const Menu> Menus() {
    static const Menu menus[] = {FileMenu(), EditMenu(), ViewMenu(), DataMenu(), ToolsMenu(), HelpMenu()};
    return menus;
}

std::span<const ToolButton> ToolButtons() {
    static constexpr ToolButton buttons[] = {
        {"new", "mnuNew"},
        {.icon = "open", .item = "mnuOpen", .worded = true},
        {.icon = "save", .item = "mnuSave", .worded = true},
        kGap,
        {"print-page", "mnuPrintPage"},
        {.icon = "print", .item = "mnuPrint", .worded = true},
        {.icon = "preview", .item = "mnuPreview", .worded = true},
        kGap,
        {"first", "mnuFirstPage"},
        {"previous", "mnuPreviousPage"},
        {"next", "mnuNextPage"},
        {"last", "mnuLastPage"},
        kGap,
        {.icon = "new-page", .item = "mnuNewPage", .worded = true},
        {"delete-page", "mnuDeletePage"},
        {"page-setup", "tbrPageSetup", "Page Setup", "Ctrl+Shift+T", SetUpFirstPage},
        kGap,
        {"fonts", "mnuFonts"},
        {"margins", "mnuMarginSetup"},
        kGap,
        {"undo", "mnuUndo"},
        {"redo", "mnuRedo"},
    };
    return buttons;
}

} // namespace velmora
