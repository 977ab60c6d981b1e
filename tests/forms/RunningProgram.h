// A started program with its window, on the offscreen platform.
#pragma once

#include "app/ui/QtForms.h"
#include "base/AtomicFile.h"
#include "platform/linux/FontconfigCatalogue.h"
#include "setup/Margins.h"
#include "tests/support/TestProgram.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

namespace velmora {

/// A warning of Qt's is a fault of ours.
inline void FailOnWarnings() {
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtWarningMsg && !text.startsWith("This plugin does not support"))
            qFatal("Qt warns: %s", qPrintable(text));
        else if (type == QtFatalMsg)
            std::fprintf(stderr, "%s\n", qPrintable(text));
    });
}

class RunningProgram {
public:
    /// `printers` null: the built-in ones.
    explicit RunningProgram(PrintSystem* printers = nullptr)
        : test([](const std::string& text) { qFatal("%s", text.c_str()); }),
          program{{test.settings, test.ui, printers ? *printers : test.printers, test.workbooks}, {}, fonts, {}} {
        std::filesystem::create_directory(test.folder / "Images");
        std::filesystem::create_directory(test.folder / "Tabs");
        test.Store("Settings", "Start with setup", "False");
        SaveDefaultMargins(test.settings, 0, "A4_8", {}); // a start that asks nothing
    }
    void Start(const std::string& commandLine = "") {
        Main(program, commandLine, forms);
        window = forms.Window();
        window->activateWindow(); // a dialog may have been in front
        QVERIFY(QTest::qWaitForWindowActive(window));
    }
    void Start(int type, int fields, int pages) {
        const int tabs = FindTabType(type)->TabsPerPage() * pages;
        std::string text = "Version 8\r\nP," + std::string(type < 4 ? "A4" : "DL_v") + "," + std::to_string(type) +
                           "," + std::to_string(fields) +
                           "\r\n0,0\r\nArial,10,False,False,False,0,1\r\nArial,10,False,False,False,2,1\r\n"
                           "Arial,10,False,False,False,1,1\r\n";
        for (int tab = 1; tab <= tabs; ++tab)
            text += "a" + std::to_string(tab) + ",b,c\r\n";
        ReplaceFile(test.folder / "in.csv", text);
        Start((test.folder / "in.csv").string());
    }
    QLineEdit* Box(const char* name) { return window->findChild<QLineEdit*>(name); }
    QString Panel(int panel) { return window->findChild<QLabel*>(QString("Panel%1").arg(panel))->text(); }
    void Trigger(const char* name) { window->findChild<QAction*>(name)->trigger(); }

    FontconfigCatalogue fonts;
    TestProgram test;
    Program program;
    QtForms forms{program};
    mdiVelmora* window = nullptr; ///< once started
};

} // namespace velmora
