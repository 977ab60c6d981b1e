// The desktop program: makes the one struct that is the running program, opens its window and waits for commands.

#include "app/ui/QtForms.h"
#include "base/Terminal.h"
#include "base/Validate.h"
#include "base/Version.h"
#include "platform/InstalledPrinters.h"
#include "platform/qt/BundledFiles.h"
#include "platform/qt/Endings.h"
#include "platform/qt/ProgramStart.h"
#include "platform/qt/QtUserInterface.h"
#include "settings/RegistryFile.h"
#include "widgets/PlainButtons.h"
#include "workbook/LibraryWorkbooks.h"

#include <QApplication>
#include <QDirIterator>
#include <QIcon>
#include <QMessageBox>

#include <clocale>
#include <cstdio>

namespace {

using namespace velmora;

constexpr int kMostBeside = 10; ///< windows: as many as one command opens

/// Fills a folder of pictures that lacks the one by which it is known, and a folder of documents that is missing or
/// empty: a person may have removed the sample.
void LayOut(const std::filesystem::path& images, const std::filesystem::path& tabs) {
    std::error_code error;
    if (!FindFile(images, "A4_alpha_New.gif"))
        UnpackBundledFiles("Images", images);
    if (!std::filesystem::exists(tabs, error) || std::filesystem::is_empty(tabs, error))
        UnpackBundledFiles("Tabs", tabs);
}

/// Before the window, what it shows at first is laid out in the folders that the start-up may have made.
class InstalledForms : public QtForms {
public:
    explicit InstalledForms(Program& program) : QtForms(program), globals_(program.main.globals) {}
    void ShowMainWindow() override {
        LayOut(globals_.ImagesPath, globals_.TabsPath);
        QtForms::ShowMainWindow();
    }

private:
    const GlobalConfiguration& globals_;
};

CommandLine Read(int argc, char** argv) {
    return ReadCommandLine(WordsOfCall(argc, argv));
}

/// The system's own, or a file in its place.
std::unique_ptr<Registry> MakeRegistry(const std::filesystem::path& folder) {
    const auto open = [](const std::filesystem::path& file) { return std::make_unique<RegistryFile>(file); };
    auto registry = MakeMachineRegistry(open);
    return registry ? std::move(registry) : open(folder / "Velmora.reg");
}

int Run(const CommandLine& commandLine) {
    const Environment environment = SystemEnvironment();
    const std::filesystem::path folder = MakeProgramFolder(environment);
    LayOut(folder / "Images", folder / "Tabs");

    QtUserInterface ui;
    const std::unique_ptr<Registry> registry = MakeRegistry(folder);
    InstalledPrinters printers = MakeInstalledPrinters(environment);
    LibraryWorkbooks workbooks;
    const std::unique_ptr<FontCatalogue> fonts = MakeFontCatalogue();
    SettingsStore settings(*registry, ui);
    settings.ProgramFolder = folder;
    Program program{{settings, ui, printers, workbooks}, {}, *fonts, {}};
    program.main.language = DesktopLanguage(environment);
    program.beside = std::clamp(std::atoi(environment(kBesideVariable).value_or("0").c_str()), 0, kMostBeside);
    const std::unique_ptr<Drives> drives = MakeDrives();
    program.main.drives.Take(*drives);
    const std::unique_ptr<Desktop> desktop = MakeDesktop(environment);
    program.desktop.Take(*desktop);
    InstalledForms forms(program);
    const Endings endings([&forms] {
        if (mdiVelmora* window = forms.Window())
            window->Leave();
    });
    if (Main(program, commandLine, forms) == StartOutcome::Ended)
        return 0;
    return QApplication::exec();
}

constexpr const char* kUsage = "Usage: velmora [FILE ...]  open tab documents, each in a window of its own\n"
                               "       velmora SETTINGS    open the settings editor alone\n"
                               "       velmora --help | --version\n";

/// Answers that need no display. False for any other command line.
bool AnswersAtOnce(const CommandLine& commandLine) {
    if (commandLine.kind == CommandLine::Kind::Version)
        std::printf("velmora %s\n", kVersion);
    else if (commandLine.kind == CommandLine::Kind::Help)
        std::printf("Designs and prints the tabs of file folders.\n%s", kUsage);
    else
        return false;
    return true;
}

/// In each size that it is drawn in.
QIcon ProgramIcon() {
    QIcon icon;
    for (QDirIterator files(":/icon"); files.hasNext();)
        icon.addFile(files.next());
    return icon;
}

} // namespace

int main(int argc, char** argv) {
    TakeTerminalOfCaller();
    if (AnswersAtOnce(Read(argc, argv)))
        return 0;
    const auto usual = qInstallMessageHandler(EndWithoutDisplay);
    const QApplication application(argc, argv); // takes the toolkit's own options out
    qInstallMessageHandler(usual);
    const CommandLine commandLine = Read(argc, argv);
    if (commandLine.kind == CommandLine::Kind::UnknownOption) {
        std::fprintf(stderr, "velmora: unknown option: %s\n%s", ForTerminal(commandLine.unknown).c_str(), kUsage);
        return 2;
    }
    QApplication::setStyle(new PlainButtons);
    std::setlocale(LC_NUMERIC, "C"); // Qt took the desktop's: libraries would write decimal commas into workbooks
    QApplication::setApplicationName("Velmora"); // no display name: Qt would append it to every caption
    QApplication::setDesktopFileName("org.velmora.Velmora");
    QApplication::setWindowIcon(ProgramIcon());
    try {
        return Run(commandLine);
    } catch (const std::exception& error) {
        QMessageBox::critical(nullptr, "Velmora", QString::fromLocal8Bit(error.what()));
        return 1;
    }
}
