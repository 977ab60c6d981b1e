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

class PrintBox : public QGroupBox {
    Q_OBJECT

public:
    /// The run must outlive the box. Print becomes the default button of the parent's window.
    PrintBox(PrintRun& run, QWidget* parent);

    /// After the number of sheets may have changed.
    void ShowCounts();
    /// While `sheet` is seen, from 1.
    void ShowChoice(int sheet);

private:
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
    QPushButton *cmdPrint_ = nullptr, *cmdSavePdf_ = nullptr;
    AnswerLabel* lblRange_;
    AnswerLabel* lblPrinted_;
};

} // namespace velmora
