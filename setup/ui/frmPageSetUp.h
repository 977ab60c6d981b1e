// The page set-up: stationery and number of fields. The status line follows each choice; OK rebuilds the document.
#pragma once

#include "setup/PageSetup.h"
#include "widgets/FormPlace.h"

#include <functional>

class QButtonGroup;
class QLabel;
class QLayout;
class QLineEdit;

namespace velmora {

class AnswerLabel;

class frmPageSetUp : public PlacedDialog {
    Q_OBJECT

public:
    /// `printTestPage` is for the printer set-up wizard, which can be called from here.
    frmPageSetUp(MainModule& main, std::function<void(std::int32_t tabs)> printTestPage, QWidget* parent);

    /// Shows it until it is closed. NoPrinter: as LoadGlobals says; then it is not shown any longer.
    LoadOutcome Run();

private:
    void BuildUi();
    QWidget* BuildStationery();
    QWidget* BuildFields();
    bool Open();
    void ShowType();
    void ShowFields();
    void OpenPrinterWizard();

    MainModule& main_;
    PageSetup setup_;
    std::function<void(std::int32_t tabs)> printTestPage_;
    LoadOutcome outcome_ = LoadOutcome::Loaded;
    QButtonGroup* optPgsize_ = nullptr; ///< ids: tab types
    QButtonGroup* optField_ = nullptr;  ///< ids: numbers of fields
    std::array<QLineEdit*, kFieldsPerTab> txtField_ = {};
    QLabel* Image1_ = nullptr;
    QLabel* lblGridSize_ = nullptr;
    AnswerLabel* lblTexts_ = nullptr; ///< what OK does to them
};

} // namespace velmora
