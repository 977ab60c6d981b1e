// A started program with its window, on the offscreen platform.
#pragma once

#include "app/ui/QtForms.h"
#include "base/AtomicFile.h"
#include "tests/forms/FormsTest.h"
#include "tests/support/InstalledFonts.h"
#include "tests/support/TestProgram.h"
#include "workspace/Margins.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace velmora {

/// The window of long work, which comes after a while of it.
inline QWidget& ProgressWindow(Progress& progress) {
    QWidget* window = nullptr;
    const bool came = QTest::qWaitFor([&] {
        progress.Advance(1);
        for (QWidget* widget : QApplication::topLevelWidgets())
            window = widget->objectName() == "frmProgress" ? widget : window;
        return window != nullptr;
    });
    if (!came)
        FailAndEnd("no window of long work");
    return *window;
}

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
        for (const char* ask : {"Ask for printer", "Ask for margins"})
            test.Store("Settings", ask, "False");
        test.Store("Settings", "Start Page", "False");    // the sheet at once
        SaveDefaultMargins(test.settings, 0, "A4_8", {}); // a start that asks nothing
    }
    /// Started, with a file of its own.
    RunningProgram(int type, int fields, int pages, PrintSystem* printers = nullptr) : RunningProgram(printers) {
        Start(type, fields, pages);
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
        const std::string font = "\r\nArial,10,False,False,False,";
        std::string text = std::string("Version 8\r\nP,") + (type < 4 ? "A4," : "DL_v,") + std::to_string(type) + "," +
                           std::to_string(fields) + "\r\n0,0" + font + "0,1" + font + "2,1" + font + "1,1\r\n";
        for (int tab = 1; tab <= tabs; ++tab)
            text += "a" + std::to_string(tab) + ",b,c\r\n";
        ReplaceFile(test.folder / "in.csv", text);
        Start((test.folder / "in.csv").string());
    }
    // NOLINTBEGIN(readability-make-member-function-const): what they give or do is not constant
    QString Focused() { return window->focusWidget()->objectName(); }
    void Press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(window->focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    QLineEdit* Box(const char* name) { return window->findChild<QLineEdit*>(name); }
    QLineEdit* Enter(const char* name) {
        Box(name)->setFocus();
        return Box(name);
    }
    QString Panel(int panel) { return window->findChild<QLabel*>(QString("Panel%1").arg(panel))->text(); }
    /// With a Yes to its question.
    void DeletePage() {
        test.ui.Expect("Do you want to delete the current page?", Icon::Question, Buttons::YesNo, Answer::Yes,
                       Answer::No);
        Trigger("mnuDeletePage");
    }
    void Trigger(const char* name) { window->findChild<QAction*>(name)->trigger(); }
    // NOLINTEND(readability-make-member-function-const)

    InstalledFonts fonts;
    TestProgram test;
    Program program;
    QtForms forms{program};
    mdiVelmora* window = nullptr; ///< once started
    Patience patience;
};

} // namespace velmora
