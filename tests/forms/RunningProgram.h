// A started program with its window, on the offscreen platform.
#pragma once

#include "app/ui/QtForms.h"
#include "base/AtomicFile.h"
#include "platform/linux/FontconfigCatalogue.h"
#include "setup/Margins.h"
#include "tests/forms/FormsTest.h"
#include "tests/support/TestProgram.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace velmora {

/// Closes a dialog that nobody answers, which would hold up the tests behind it.
class Patience : public QTimer {
public:
    Patience() {
        callOnTimeout([this] {
            QWidget* front = QApplication::activeModalWidget();
            seconds_ = front && front == last_ ? seconds_ + 1 : 0;
            last_ = front;
            if (seconds_ < kMostSeconds)
                return;
            FailSoftly("not answered: " + front->objectName().toStdString());
            front->close();
        });
        start(1000);
    }

private:
    static constexpr int kMostSeconds = 60;

    QPointer<QWidget> last_;
    int seconds_ = 0;
};

class RunningProgram {
public:
    /// `printers` null: the built-in ones.
    explicit RunningProgram(PrintSystem* printers = nullptr)
        : test(FailSoftly), program{{test.settings, test.ui, printers ? *printers : test.printers, test.workbooks},
                                    {},
                                    fonts,
                                    {}} {
        std::filesystem::create_directory(test.folder / "Images");
        std::filesystem::create_directory(test.folder / "Tabs");
        test.Store("Settings", "Start with setup", "False");
        test.Store("Settings", "Ask for printer", "False");
        SaveDefaultMargins(test.settings, 0, "A4_8", {}); // a start that asks nothing
    }
    void Start(const std::string& commandLine = "") {
        Main(program, ReadCommandLine(commandLine.empty() ? std::vector<std::string>() : std::vector{commandLine}),
             forms);
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
    // NOLINTBEGIN(readability-make-member-function-const): what they give or do is not constant
    QLineEdit* Box(const char* name) { return window->findChild<QLineEdit*>(name); }
    QString Panel(int panel) { return window->findChild<QLabel*>(QString("Panel%1").arg(panel))->text(); }
    void Trigger(const char* name) { window->findChild<QAction*>(name)->trigger(); }
    // NOLINTEND(readability-make-member-function-const)

    FontconfigCatalogue fonts;
    TestProgram test;
    Program program;
    QtForms forms{program};
    mdiVelmora* window = nullptr; ///< once started
    Patience patience;
};

} // namespace velmora
