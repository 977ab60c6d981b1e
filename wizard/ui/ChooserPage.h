// The field chooser, which shows what each field of the new tabs will hold, and the ways to give it: the pages behind
// its button, a first text, the last run, and recipes.
#pragma once

#include "wizard/Recipes.h"
#include "wizard/ui/frmAutoRepWiz.h"

#include <array>

class QComboBox;
class QGridLayout;
class QLineEdit;
class QPushButton;

namespace velmora {

class ElidedLabel;
class WarningLine;

class frmAutoRepWiz2a : public AutoRepForm {
public:
    explicit frmAutoRepWiz2a(frmAutoRepWiz& wizard);
    void Next() override;
    void Finish() override;
    QWidget* FirstFocus() override;
    bool PrefersFinish() const override { return allDone_; }

private:
    struct FieldRow {
        QPushButton* button = nullptr;
        QLineEdit* first = nullptr;
        ElidedLabel* overview = nullptr;
    };

    void AddField(QGridLayout& grid, int fieldNo);
    QPushButton* MakeFieldButton(int fieldNo);
    void AddLastRun();
    void AddRecipes();
    void ListRecipes();
    std::string RecipeName() const;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void LeaveFirstText(const QObject* entry);
    void TakeStored(const std::string& name);
    void Take(const Recipe& recipe);
    void Save();
    void Delete();
    void TypeFirstText(int fieldNo, const std::string& text);
    void ShowFirstText(int fieldNo);
    void ShowFields();
    void ShowChoices();

    Recipe lastRun_;
    bool allDone_ = false;
    std::array<FieldRow, kFieldsPerTab> rows_;
    WarningLine* lblWarning_ = nullptr;
    QComboBox* cboRecipe_ = nullptr;
    QPushButton* cmdSave_ = nullptr;
    QPushButton* cmdDelete_ = nullptr;
};

} // namespace velmora
