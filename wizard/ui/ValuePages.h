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

namespace velmora {

/// "&Next Field", and a line that shows what it will make.
class ValueForm : public AutoRepForm {
protected:
    ValueForm(frmAutoRepWiz& wizard, WizardPage page);

    void AddPreview();
    void ShowPreview(const std::string& text);
    /// The font page once every field has its values, else the chooser.
    void GoOn();

private:
    QLabel* lblPreview_ = nullptr;
};

class frmAutoRepWiz5a : public ValueForm {
public:
    explicit frmAutoRepWiz5a(frmAutoRepWiz& wizard);
    void Next() override;
    QWidget* FirstFocus() override;

private:
    void BuildUi();
    QLayout* BuildTextsRow();
    void Continue();
    void Typed();

    std::optional<NumberSeries> next_; ///< after the last number in the document
    QLineEdit* txtFirstNumber_;
    QComboBox* cboNumberFormat_;
    QLineEdit* Text1_;
    QLineEdit* Text2_;
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
    void Next() override;
    QWidget* FirstFocus() override;

private:
    void BuildBoxes();
    std::vector<TickBox> Ticks() const;
    void TickAll(bool ticked);
    void UseUpperCase(bool upper);
    void Ticked();

    std::vector<QCheckBox*> boxes_;
    QCheckBox* chkTagAll_;
    QCheckBox* chkUpperCase_;
};

class frmAutoRepWiz5d : public ValueForm {
public:
    explicit frmAutoRepWiz5d(frmAutoRepWiz& wizard);
    void Next() override;
    QWidget* FirstFocus() override;

private:
    void Typed();

    QLineEdit* txtInput_;
};

} // namespace velmora
