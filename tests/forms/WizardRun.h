// A program with the auto-fill wizard open, and its controls by their names.
#pragma once

#include "base/Text.h"
#include "tests/forms/RunningProgram.h"
#include "widgets/WizardFrame.h"

#include <QPushButton>
#include <QRadioButton>

namespace velmora {

inline const std::string kQuestion = "If you cancel this wizard, none of the settings will be saved.";

/// A program with a document of 24 tabs, and its wizard.
struct WizardRun : RunningProgram {
    explicit WizardRun(int fields) { Start(0, fields, 1); }

    /// The window while it is open.
    WizardFrame* Frame() {
        for (auto* frame : window->findChildren<WizardFrame*>())
            if (frame->isVisible())
                return frame;
        return nullptr;
    }
    std::string Page() { return Frame() ? Frame()->Page()->objectName().toStdString() : "closed"; }
    template <typename Control> Control* Find(const char* name) {
        auto* control = Frame()->findChild<Control*>(name);
        if (!control)
            FailAndEnd(std::string(name) + " is not on " + Page());
        return control;
    }
    bool Enabled(const char* button) { return Find<QPushButton>(button)->isEnabled(); }
    void Press(const char* button) {
        if (!Enabled(button))
            FailAndEnd(std::string(button) + " is disabled on " + Page());
        Find<QPushButton>(button)->click();
    }
    void Type(const char* entry, const char* text) { Find<QLineEdit>(entry)->setText(QString::fromUtf8(text)); }
    /// As a person types it, from scratch.
    void Fill(const char* entry, const char* text) {
        Find<QLineEdit>(entry)->setFocus();
        Find<QLineEdit>(entry)->selectAll();
        QTest::keyClicks(Find<QLineEdit>(entry), text);
    }
    std::string Shown(const char* label) { return Find<QLabel>(label)->text().toStdString(); }
    /// Saves, and gives lines `first` to `last` of the tabs in the file.
    QString Saved(int first, int last) {
        test.ui.Expect("File saved successfully", Icon::Information);
        Trigger("mnuSave");
        const std::string text = ReadFile(test.folder / "in.csv");
        const auto lines = Split(text, '\n');
        std::string tabs;
        for (int tab = first; tab <= last; ++tab)
            tabs += std::string(lines.at(static_cast<std::size_t>(5 + tab))) + "|";
        return QString::fromStdString(tabs).remove('\r');
    }
    std::string Preview() { return Find<QLabel>("lblPreview")->text().toStdString(); }
    std::string Focus() { return Frame()->focusWidget()->objectName().toStdString(); }
    void AnswerCancel(const std::string& words, Answer answer) {
        test.ui.Expect(kQuestion + words, Icon::Question, Buttons::YesNo, answer, Answer::No);
    }

    void Open(const char* count = "30") {
        Trigger("mnuAutoRepWiz");
        Press("cmdNext");
        Type("txtNoOfPages", count);
        Press("cmdNext");
    }
    void Choose(const char* field, const char* option) {
        Press(field);
        Find<QRadioButton>(option)->click();
        Press("cmdNext");
    }
    void Number(const char* field) {
        Choose(field, "optNum");
        Press("cmdNext");
    }
    void Months(const char* field) {
        Choose(field, "optMth");
        Find<QRadioButton>("OptDayMon(3)")->click();
        Press("cmdNext");
    }
};

} // namespace velmora
