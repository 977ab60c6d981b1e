// The preview's first sheet: which of its labels are gone, and whether it goes on being used after this job.
#pragma once

#include "print/PrintRun.h"
#include "print/UsedLabels.h"

#include <QGroupBox>

#include <optional>
#include <set>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QPushButton;
class QSpinBox;

namespace velmora {

class UsedBox : public QGroupBox {
    Q_OBJECT

public:
    /// The run must outlive the box.
    UsedBox(PrintRun& run, QWidget* parent);

    /// nullopt: the sheet counts as whole, and no label can be struck out.
    std::optional<std::set<int>> Labels() const;
    void Toggle(int label);
    void ExtendTo(int label);
    /// Begins with the labels that an earlier job left. `partly`: labels may be struck out, even where it left none.
    void Begin(bool partly);
    /// After the choice of tabs may have changed: tabs in their own places do not flow.
    void ShowPlaces();
    /// After the sheets were printed: where the sheet goes on being used, the run goes on behind them.
    void Keep(const std::vector<int>& sheets);

signals:
    /// A person has ticked it, and is about to say which labels are gone.
    void MarkingBegins();
    /// The run has been told.
    void Changed();

private:
    QHBoxLayout* BuildFirstLine();
    QHBoxLayout* BuildFirstFree();
    void TellRun();
    void ShowLabels();

    PrintRun& run_;
    UsedLabels labels_; ///< kept while the sheet counts as whole
    QCheckBox* chkPartlyUsed_ = nullptr;
    QPushButton* cmdClearUsed_ = nullptr;
    QLabel* lblFirstFree_ = nullptr;
    QSpinBox* txtFirstFree_ = nullptr;
    QLabel* lblUsed_;
    QCheckBox* chkGoesOn_;
};

} // namespace velmora
