// How a worksheet or list without a header becomes tabs: its first rows, and which column goes to which field.
#pragma once

#include "widgets/FormPlace.h"
#include "workspace/ImportDialogs.h"
#include "workspace/mdlMain.h"

#include <array>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QTableWidget;

namespace velmora {

class frmImport : public PlacedDialog {
    Q_OBJECT

public:
    /// `request` must outlive the dialog.
    frmImport(MainModule& main, const ImportRequest& request, const ImportChoice& choice, QWidget* parent);

    ImportChoice Choice() const;

private:
    void BuildUi(const ImportChoice& choice);
    void BuildPreview();
    void AddListEntries(QFormLayout* entries, const ImportChoice& choice);
    void AddFieldEntries(QFormLayout* entries);
    void AddHiddenEntry(QFormLayout* entries);
    void FillColumns();
    void ShowPreview();
    QString ColumnTitle(int column) const;

    const ImportRequest& request_;
    std::vector<std::vector<std::string>> rows_;
    int columns_ = 0;
    QTableWidget* tblPreview_;
    std::array<QComboBox*, kFieldsPerTab> cboFields_ = {};
    QCheckBox* chkHeading_;
    QCheckBox* chkHidden_ = nullptr;    ///< where the sheet has hidden rows
    QComboBox* cboDelimiter_ = nullptr; ///< of lists alone
    QComboBox* cboEncoding_ = nullptr;
};

} // namespace velmora
