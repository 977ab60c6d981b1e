// The desktop program: makes the one struct that is the running program, opens its window and waits for commands.

#include "app/ui/QtForms.h"
#include "base/Paths.h"
#include "base/Validate.h"
#include "base/Version.h"
#include "platform/InstalledPrinters.h"
#include "platform/qt/BundledFiles.h"
#include "platform/qt/Endings.h"
#include "platform/qt/QtUserInterface.h"
#include "settings/RegistryFile.h"
#include "workbook/LibraryWorkbooks.h"

#include <QApplication>
#include <QIcon>
#include <QMessageBox>

#include <clocale>
#include <cstdio>

namespace {

using namespace velmora;

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

/// The arguments as the system gave them: a file's name need not be UTF-8.
std::string CommandLine(int argc, char** argv) {
    std::string line;
    for (int i = 1; i < argc; ++i)
        line += std::string(i == 1 ? "" : " ") + argv[i];
    return line;
}

int Run(const std::string& commandLine) {
    const Environment environment = SystemEnvironment();
    const std::filesystem::path folder = MakeProgramFolder(environment);
    LayOut(folder / "Images", folder / "Tabs");

    QtUserInterface ui;
    RegistryFile registry(folder / "Velmora.reg");
    InstalledPrinters printers = MakeInstalledPrinters(environment);
    LibraryWorkbooks workbooks;
    const std::unique_ptr<FontCatalogue> fonts = MakeFontCatalogue();
    SettingsStore settings(registry, ui);
    settings.ProgramFolder = folder;
    Program program{{settings, ui, printers, workbooks}, {}, *fonts, {}};
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

/// Answers that need no display. False for any other command line.
bool AnswersAtOnce(const std::string& commandLine) {
    if (commandLine == "--version")
        std::printf("velmora %s\n", kVersion);
    else if (commandLine == "--help" || commandLine == "-h")
        std::printf("Designs and prints the tabs of file folders.\n"
                    "Usage: velmora [FILE]      open a tab document\n"
                    "       velmora SETTINGS    open the settings editor alone\n"
                    "       velmora --help | --version\n");
    else
        return false;
    return true;
}

/// Whether the toolkit has something to draw on; without it, it would advise to install the program anew and abort.
bool HasDisplay(const Environment& environment, const std::string& commandLine) {
    return environment("DISPLAY") || environment("WAYLAND_DISPLAY") || environment("QT_QPA_PLATFORM") ||
           commandLine.find("-platform") != std::string::npos;
}

} // namespace

int main(int argc, char** argv) {
    const std::string given = CommandLine(argc, argv);
    if (AnswersAtOnce(given))
        return 0;
    if (!HasDisplay(SystemEnvironment(), given)) {
        std::fprintf(stderr, "velmora: there is no display: neither DISPLAY nor WAYLAND_DISPLAY is set. velmora-batch "
                             "works without one.\n");
        return 1;
    }
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // Qt took the desktop's: libraries would write decimal commas into workbooks
    QApplication::setApplicationName("Velmora"); // no display name: Qt would append it to every caption
    QApplication::setDesktopFileName("org.velmora.Velmora");
    QApplication::setWindowIcon(QIcon(":/velmora.svg"));
    try {
        return Run(CommandLine(argc, argv));
    } catch (const std::exception& error) {
        QMessageBox::critical(nullptr, "Velmora", QString::fromLocal8Bit(error.what()));
        return 1;
    }
}
