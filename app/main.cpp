// The desktop program: makes the one struct that is the running program, opens its window and waits for commands.

#include "app/Main.h"
#include "app/ui/mdiVelmora.h"
#include "platform/linux/BuiltInPrinters.h"
#include "platform/linux/FontconfigCatalogue.h"
#include "platform/linux/ProgramFolder.h"
#include "platform/linux/RegistryFile.h"
#include "platform/qt/BundledFiles.h"
#include "platform/qt/QtUserInterface.h"

#include <QApplication>
#include <QIcon>

#include <iostream>

namespace {

using namespace velmora;

/// The main window lives from the start-up's call to the end of the process.
class QtForms : public Forms {
public:
    explicit QtForms(Program& program) : program_(program) {}
    void ShowMainWindow() override {
        window_ = std::make_unique<mdiVelmora>(program_);
        window_->show();
    }

private:
    Program& program_;
    std::unique_ptr<mdiVelmora> window_;
};

std::string CommandLine(const QStringList& arguments) {
    return arguments.mid(1).join(' ').toStdString();
}

int Run(QApplication& application) {
    const Environment environment = SystemEnvironment();
    const std::filesystem::path folder =
        FindProgramFolder(QCoreApplication::applicationDirPath().toStdString(), environment);
    if (!std::filesystem::exists(folder / "Velmora.ini"))
        UnpackBundledFiles(folder);

    QtUserInterface ui;
    RegistryFile registry(folder / "Velmora.reg");
    BuiltInPrinters printers(environment("VELMORA_NO_PDF_PRINTER") != "1");
    FontconfigCatalogue fonts;
    SettingsStore settings(registry, ui);
    settings.ProgramFolder = folder;
    Program program{{settings, ui, printers, {}, {}, {}}, {}, fonts, {}};
    QtForms forms(program);
    if (Main(program, CommandLine(application.arguments()), forms) == StartOutcome::Ended)
        return 0;
    return QApplication::exec();
}

} // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setApplicationName("Velmora"); // no display name: Qt would append it to every caption
    QApplication::setDesktopFileName("velmora");
    QApplication::setWindowIcon(QIcon(":/velmora.svg"));
    try {
        return Run(application);
    } catch (const std::exception& error) {
        std::cerr << "velmora: " << error.what() << '\n';
        return 1;
    }
}
