// The preview's remarks: runs the check before printing in slices, lists what it finds, and hands on what is chosen.
#pragma once

#include "print/PrintRun.h"
#include "print/ui/FindingList.h"

#include <QGroupBox>
#include <QTimer>

class QLabel;
class QListView;
class QPushButton;

namespace velmora {

class FindingsBox : public QGroupBox {
    Q_OBJECT

public:
    /// The run must outlive the box.
    FindingsBox(PrintRun& run, QWidget* parent);

    /// Anew from the run's first sheet.
    void StartCheck();
    void StopCheck() { timer_.stop(); }

signals:
    /// The reference holds during the call.
    void Chosen(const PrintFinding& finding);
    void EditAsked(TabBox box);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void CheckSome();
    void ShowFindings();
    const PrintFinding* ChosenText() const;
    void ShowWhole();
    void Choose();
    void Edit();

    PrintRun& run_;
    std::optional<PrintCheck> check_;
    QTimer timer_;
    FindingList* findings_;
    QLabel* lblChecking_;
    QListView* lstFindings_;
    QLabel* lblFinding_; ///< the line in use, whole
    QPushButton* cmdEditTab_;
};

} // namespace velmora
