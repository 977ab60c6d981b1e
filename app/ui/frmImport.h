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

class ElidedLabel;

class frmImport : public PlacedDialog {
    Q_OBJECT

public:
    /// `request` must outlive the dialog.
    frmImport(MainModule& main, const ImportRequest& request, const ImportChoice& choice, QWidget* parent);

    ImportChoice Choice() const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildUi(const ImportChoice& choice);
    void BuildPreview();
    void AddListEntries(QFormLayout* entries, const ImportChoice& choice);
    void AddFieldEntries(QFormLayout* entries);
    void AddBetweenEntry(QFormLayout* entries, const ImportChoice& choice);
    void AddHiddenEntry(QFormLayout* entries);
    QComboBox* MakeColumnBox(const char* name, std::size_t field);
    void FillColumns();
    void FillColumns(QComboBox& box, const QString& none);
    void ShowPreview();
    void ShowFirstTab();
    void FitColumns();
    QString ColumnTitle(int column) const;
    QString FieldsOf(int column) const;

    const ImportRequest& request_;
    std::vector<std::vector<std::string>> rows_;
    int columns_ = 0;
    QTableWidget* tblPreview_;
    std::array<QComboBox*, kFieldsPerTab> cboFields_ = {};
    std::array<QComboBox*, kFieldsPerTab> cboJoined_ = {};
    QComboBox* cboBetween_;
    ElidedLabel* lblFirstTab_;
    QCheckBox* chkHeading_;
    QCheckBox* chkHidden_ = nullptr;    ///< where the sheet has hidden rows
    QComboBox* cboDelimiter_ = nullptr; ///< of lists alone
    QComboBox* cboEncoding_ = nullptr;
};

} // namespace velmora
