// The preview: a print run's sheets one at a time, what to look at before printing, and printing from here.
#pragma once

#include "print/PrintRun.h"
#include "print/ui/SheetDisplay.h"

#include <QDialog>

class QAction;
class QCheckBox;
class QComboBox;
class QLabel;
class QSpinBox;
class QToolBar;

namespace velmora {

class FindingsBox;
class PrintBox;
class UsedBox;

class frmPreview : public QDialog {
    Q_OBJECT

public:
    /// The run must outlive the form.
    frmPreview(PrintRun& run, QWidget* parent);

    /// The text that the person wants to edit, once the window is closed.
    std::optional<TabBox> Wanted() const { return wanted_; }

    void setVisible(bool visible) override;

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QToolBar* BuildToolBar();
    void AddPages(QToolBar& bar);
    void AddZoom(QToolBar& bar);
    QAction* AddAction(QToolBar& bar, const char* name, const char* icon, const QString& text,
                       const QList<QKeySequence>& keys);
    QWidget* BuildPanel();
    QWidget* BuildBoxes();
    void Connect();
    void Begin();

    void ShowSheet(int number);
    void ShowCounts();
    void ZoomChosen();
    void StepZoom(int steps);
    void ShowRun();
    void ShowFinding(const PrintFinding& finding);

    PrintRun& run_;
    int sheet_ = 1;
    std::optional<TabBox> wanted_;

    SheetDisplay* display_;
    PrintBox* printBox_ = nullptr;
    UsedBox* usedBox_ = nullptr;
    FindingsBox* findings_ = nullptr;
    QSpinBox* txtPage_ = nullptr;
    QLabel* lblPages_ = nullptr;
    QAction *cmdFirst_ = nullptr, *cmdPrevious_ = nullptr, *cmdNext_ = nullptr, *cmdLast_ = nullptr;
    QAction *cmdZoomIn_ = nullptr, *cmdZoomOut_ = nullptr;
    QComboBox* cboZoom_ = nullptr;
    QCheckBox* chkOutlines_ = nullptr;
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
