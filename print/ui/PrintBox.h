// The preview's choice of what to print: which sheets, why that cannot be printed, and the two ways to do it.
#pragma once

#include "print/PrintRun.h"

#include <QGroupBox>

#include <vector>

class QButtonGroup;
class QHBoxLayout;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace velmora {

class AnswerLabel;
class JobChoice;
class TabsRow;

class PrintBox : public QGroupBox {
    Q_OBJECT

public:
    /// The run must outlive the box. Print becomes the default button of the parent's window.
    PrintBox(PrintRun& run, QWidget* parent);

    /// After the number of sheets may have changed.
    void ShowCounts();
    /// While `sheet` is seen, from 1.
    void ShowChoice(int sheet);
    /// Begins with these tabs, and with the filled sheets where others are empty; once, before the box is shown.
    void Begin(const TabNumbers& tabs);

signals:
    /// The run is of other tabs.
    void TabsChosen();
    /// They went to a printer, not into a file.
    void Printed(const std::vector<int>& sheets);

private:
    bool IsChosen(SheetChoice choice) const;
    void Choose(SheetChoice choice);
    void LeadTabToChoice();
    void TakeTabs();
    QRadioButton* AddOption(SheetChoice choice, const char* name, const QString& text);
    QHBoxLayout* BuildRange();
    QHBoxLayout* BuildButtons();
    std::vector<int> ChosenSheets() const;
    void Print(bool toFile);

    PrintRun& run_;
    int sheet_ = 1;
    QButtonGroup* optSheets_; ///< by SheetChoice
    JobChoice* job_ = nullptr;
    QLineEdit* txtRange_ = nullptr;
    TabsRow* tabs_ = nullptr;
    QPushButton *cmdPrint_ = nullptr, *cmdSavePdf_ = nullptr;
    AnswerLabel* lblRange_;
    AnswerLabel* lblPrinted_;
};

} // namespace velmora
