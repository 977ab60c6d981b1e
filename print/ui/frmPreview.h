// The preview: a print run's sheets one at a time, what to look at before printing, and printing from here.
#pragma once

#include "print/PrintRun.h"
#include "print/ui/FindingList.h"
#include "print/ui/SheetDisplay.h"

#include <QDialog>
#include <QTimer>

class QAction;
class QButtonGroup;
class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QListView;
class QPushButton;
class QSpinBox;
class QToolBar;
class QVBoxLayout;

namespace velmora {

class frmPreview : public QDialog {
    Q_OBJECT

public:
    /// The run must outlive the form.
    frmPreview(PrintRun& run, QWidget* parent);

    /// The text that the person wants to edit, once the window is closed.
    std::optional<TabBox> Wanted() const { return wanted_; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QToolBar* BuildToolBar();
    void AddPages(QToolBar& bar);
    void AddZoom(QToolBar& bar);
    QAction* AddAction(QToolBar& bar, const char* name, const char* icon, const QString& text,
                       const QList<QKeySequence>& keys);
    QWidget* BuildPanel();
    QGroupBox* BuildPrintBox();
    QGroupBox* BuildUsedBox();
    QGroupBox* BuildFindingBox();
    void Connect();

    void ShowSheet(int number);
    void ShowCounts();
    void ZoomChosen();
    void StepZoom(int steps);
    std::vector<int> ChosenSheets() const;
    void ShowChoice();
    void Print(bool toFile);
    void ShowUsedSlots();
    void ToggleSlot(int slot);
    void StartCheck();
    void CheckSome();
    void ShowFindings();
    const PrintFinding* ChosenText() const;
    void ShowFinding();
    void EditFinding();

    PrintRun& run_;
    int sheet_ = 1;
    std::set<int> used_; ///< kept while the first sheet counts as whole
    std::optional<PrintCheck> check_;
    QTimer checkTimer_;
    FindingList* findings_;
    std::optional<TabBox> wanted_;

    SheetDisplay* display_;
    QSpinBox* txtPage_ = nullptr;
    QLabel* lblPages_ = nullptr;
    QAction *cmdFirst_ = nullptr, *cmdPrevious_ = nullptr, *cmdNext_ = nullptr, *cmdLast_ = nullptr;
    QAction *cmdZoomIn_ = nullptr, *cmdZoomOut_ = nullptr;
    QComboBox* cboZoom_ = nullptr;
    QCheckBox* chkOutlines_ = nullptr;
    QButtonGroup* optSheets_ = nullptr; ///< by SheetChoice
    QLineEdit* txtRange_ = nullptr;
    QLabel* lblRange_ = nullptr;
    QLabel* lblPrinted_ = nullptr;
    QPushButton *cmdPrint_ = nullptr, *cmdSavePdf_ = nullptr;
    QCheckBox* chkPartlyUsed_ = nullptr;
    QPushButton* cmdClearUsed_ = nullptr;
    QGroupBox* fraFindings_ = nullptr;
    QLabel* lblChecking_ = nullptr;
    QListView* lstFindings_ = nullptr;
    QPushButton* cmdEditTab_ = nullptr;
};

/// Opens a preview over its owner's window.
class PreviewViewer : public ReportViewer {
public:
    explicit PreviewViewer(QWidget& owner) : owner_(owner) {}
    void ShowReport(PrintRun& run) override;

private:
    QWidget& owner_;
};

} // namespace velmora
