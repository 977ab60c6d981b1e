// The wizard's pages that give the current field its values: numbers, style and ticks of names, and a fixed text.
#pragma once

#include "wizard/ui/frmAutoRepWiz.h"

#include <vector>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QLayout;

namespace velmora {

class ElidedLabel;
class WarningLine;
struct ValueNotes;

/// "&Next Field", and below the entries what they will make and lose.
class ValueForm : public AutoRepForm {
public:
    void Next() override;

protected:
    ValueForm(frmAutoRepWiz& wizard, WizardPage page);

    FieldChoice& Entry() { return State().Entry(); }
    /// How many tabs in a row hold the same value.
    QLayout* RepeatRow();
    /// Where the letters of a text are counted.
    QLabel* Letters() {
        lblLetters_->show();
        return lblLetters_;
    }
    void AddPreview();
    /// All that follows from the entries.
    virtual void ShowNotes();
    /// The same of entries that make `series`.
    void ShowNotes(const ValueNotes& notes, const std::optional<ValueSeries>& series);

private:
    QLabel* lblLetters_;
    ElidedLabel* lblPreview_ = nullptr;
    WarningLine* lblWarning_ = nullptr;
};

class frmAutoRepWiz5a : public ValueForm {
public:
    explicit frmAutoRepWiz5a(frmAutoRepWiz& wizard);
    void Next() override;
    QWidget* FirstFocus() override;

private:
    void BuildUi();
    QLayout* BuildTextsRow();
    /// A series into the controls.
    void Show(const NumberSeries& numbers);
    NumberSeries Read() const;
    void Continue();
    void Typed();
    using ValueForm::ShowNotes;
    void ShowNotes() override;

    std::optional<NumberSeries> next_; ///< after the last number in the document
    QLineEdit* txtFirstNumber_;
    QComboBox* cboNumberFormat_;
    QLineEdit* Text1_;
    QLineEdit* Text2_;
    QCheckBox* chkTexts_;
    QPushButton* cmdContinue_;
};

class frmAutoRepWiz5b : public AutoRepForm {
public:
    explicit frmAutoRepWiz5b(frmAutoRepWiz& wizard);
    void Next() override;
    QWidget* FirstFocus() override;

private:
    QButtonGroup* styles_; ///< 1 to 4
};

class frmAutoRepWiz6a : public ValueForm {
public:
    explicit frmAutoRepWiz6a(frmAutoRepWiz& wizard);
    QWidget* FirstFocus() override;

private:
    void BuildBoxes();
    bool& Ticked(int index);
    void TickAll(bool ticked);
    void UseUpperCase(bool upper);
    void ShowTicks();

    std::vector<QCheckBox*> boxes_;
    QCheckBox* chkTagAll_;
    QCheckBox* chkUpperCase_;
};

class frmAutoRepWiz5d : public ValueForm {
public:
    explicit frmAutoRepWiz5d(frmAutoRepWiz& wizard);
    QWidget* FirstFocus() override;

private:
    void Typed();

    QLineEdit* txtInput_;
};

} // namespace velmora
