// Asks for one of a workbook's worksheets; the only one is chosen without a word.
#pragma once

#include "widgets/FormPlace.h"
#include "workspace/mdlMain.h"

#include <QTimer>

#include <string>
#include <vector>

class QListWidget;

namespace velmora {

class frmSelectSheet : public PlacedDialog {
    Q_OBJECT

public:
    frmSelectSheet(MainModule& main, const std::vector<std::string>& names, QWidget* parent);

    /// Empty when none was chosen.
    const std::string& SelectedSheet() const { return SelectedSheet_; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void BuildUi(const std::vector<std::string>& names);
    void Select(int row);
    void AskForSheet();

    MainModule& main_;
    const std::vector<std::string> names_;
    std::string SelectedSheet_;
    bool asked_ = false;
    QListWidget* lstSheets_;
    QTimer Timer1_;
};

} // namespace velmora
