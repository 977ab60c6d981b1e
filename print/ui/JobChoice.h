// The preview's choice of how a job is printed: copies, and the tray and the kind of paper where the printer has
// several.
#pragma once

#include "platform/PrintSystem.h"

#include <QWidget>

#include <vector>

class QComboBox;
class QFormLayout;
class QSpinBox;

namespace velmora {

class PrintRun;

class JobChoice : public QWidget {
    Q_OBJECT

public:
    /// The run must outlive the choice. The printer is asked once the window is there.
    JobChoice(const PrintRun& run, QWidget* parent);

    JobOptions Options() const;

private:
    void AskPrinter();
    QComboBox* AddSources(const QString& label, const char* name, const std::vector<PaperSource>& sources);

    const PrintRun& run_;
    QFormLayout* rows_;
    QSpinBox* txtCopies_;
    QComboBox *cboTray_ = nullptr, *cboKind_ = nullptr; ///< null where there is nothing to choose
};

} // namespace velmora
