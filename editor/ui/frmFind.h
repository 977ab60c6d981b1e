// Find and replace: stays open beside the grid while the person works on.
#pragma once

#include "widgets/FormPlace.h"
#include "workspace/FindReplace.h"

class QCheckBox;
class QComboBox;
class QLineEdit;
class QPushButton;

namespace velmora {

class AnswerLabel;

class frmFind : public PlacedDialog {
    Q_OBJECT

public:
    frmFind(MainModule& main, QWidget* parent);

    /// Shows it, or brings it to the front, with the entry of the text to find in focus.
    void Open();
    /// True once there is a text to find.
    bool CanFind() const;
    void FindNext();

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void BuildUi();
    void ListFields();
    void EnableButtons();
    FindRequest Request() const;
    void Show(FindOutcome outcome);
    QString FoundBox() const;
    void ShowMatches();
    void StandAside();
    void Replace();
    void ReplaceAll();

    MainModule& main_;
    Finder finder_;
    QLineEdit* txtFind_;
    QLineEdit* txtReplace_;
    QComboBox* cboField_;
    QCheckBox* chkMatchCase_;
    AnswerLabel* lblResult_;
    QPushButton* cmdFindNext_;
    QPushButton* cmdReplace_;
    QPushButton* cmdReplaceAll_;
};

} // namespace velmora
