// A program that is started again and again on the same machine, by a person who answers by chance.
#pragma once

#include "fuzz/AnyPerson.h"
#include "tests/forms/RunningProgram.h"
#include "tests/support/FakePrinters.h"

namespace velmora {

/// The folders and printers that outlive the program.
struct Machine {
    Machine() {
        std::filesystem::create_directory_symlink(VELMORA_IMAGES, folder / "Images");
        std::filesystem::create_directory(folder / "Tabs");
        for (const auto& [name, head] :
             {std::pair{"in.csv", "Office,A4,1,3"}, {"a.csv", "Office,DL_v,4,1"}, {"b.csv", "Velmora PDF,A4,2,2"}})
            ReplaceFile(folder / name, std::string("Version 8\r\n") + head +
                                           "\r\n0,0\r\nArial,10,False,False,False,0,1\r\n"
                                           "Arial,10,False,False,False,2,1\r\nArial,10,False,False,False,1,1\r\n"
                                           "a,b,c\r\nA,B,C\r\n");
        ReplaceFile(folder / "list.txt", "one;two\nthree;four\n\nfive;six\n");
        printers.names = {"Office", kPdfPrinter};
        printers.standard = "Office";
    }

    TemporaryFolder folder;
    FakePrinters printers;
    LibraryWorkbooks workbooks;
    InstalledFonts fonts;
    RegistryFile registry{folder / "Velmora.reg"};
};

class WalkingProgram {
public:
    WalkingProgram(Machine& machine, Chance& chance, Trail& trail)
        : person(chance, trail, machine.folder.Path()),
          settings(machine.registry, person), program{{settings, person, machine.printers, machine.workbooks},
                                                      {},
                                                      machine.fonts,
                                                      {}} {
        settings.ProgramFolder = machine.folder.Path();
        Main(program, {}, forms);
        window = forms.Window();
        window->activateWindow();
    }
    QAction* Item(const char* name) const { return window->findChild<QAction*>(name); }

    AnyAnswer person;
    SettingsStore settings;
    Program program;
    QtForms forms{program};
    mdiVelmora* window = nullptr;
};

} // namespace velmora
