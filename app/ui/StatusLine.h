// The status line of the main window: the five panels, what the box in use has to say, and what was just done with a
// button that opens what was written, takes back what was changed or takes the printer's margins.
#pragma once

#include "widgets/AnswerLabel.h"
#include "workspace/MainWindowStatus.h"

#include <QStatusBar>

#include <array>

class QPushButton;

namespace velmora {

class ElidedLabel;

class StatusLine : public QStatusBar {
    Q_OBJECT

public:
    explicit StatusLine(QWidget* parent);

    void SetPanel(int panel, const std::string& text);
    /// What the box in use has to say: how full it is, and what of its text will not be printed.
    void ShowBox(const QString& text);
    void Tell(const DoneMessage& done);
    /// Something else is done.
    void Forget();
    /// Something was typed, which an undo would take back in place of what was told.
    void ForgetUndo();
    /// Its texts give way before the window does.
    QSize minimumSizeHint() const override { return {0, QStatusBar::minimumSizeHint().height()}; }

signals:
    void UndoWanted();
    void PrinterMarginsWanted();
    void OpenWanted(const std::filesystem::path& file);

private:
    void Add(ElidedLabel* label, const QString& name);

    std::array<ElidedLabel*, kStatusPanels> panels_ = {};
    ElidedLabel* lblBox_;
    ElidedLabel* lblDone_;
    QPushButton* cmdDone_;
    DoneMessage done_;
    Description spoken_;
};

} // namespace velmora
