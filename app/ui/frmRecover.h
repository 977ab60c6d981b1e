// The list of the documents that were lost: some or all come back, some are given up, or all wait.
#pragma once

#include "app/LostDocuments.h"
#include "widgets/FormPlace.h"

class QBoxLayout;
class QListWidget;
class QPushButton;

namespace velmora {

class frmRecover : public PlacedDialog {
    Q_OBJECT

public:
    frmRecover(SettingsStore& settings, const std::vector<RecoveredDocument>& lost, QWidget* parent);

    /// Later when it was closed in any other way than by a button.
    const LostAnswer& Answer() const { return answer_; }
    QSize sizeHint() const override;

private:
    void BuildUi(const std::vector<RecoveredDocument>& lost);
    QBoxLayout* BuildButtons();
    QPushButton* AddChoice(QBoxLayout& buttons, const char* name, const QString& text, LostChoice choice);
    void Choose(LostChoice choice);

    QListWidget* lstLost_ = nullptr;
    QPushButton* cmdRecover_ = nullptr;
    QPushButton* cmdDiscard_ = nullptr;
    LostAnswer answer_;
};

} // namespace velmora
