// The settings editor: a maintenance tool that runs alone, without the main window.
#pragma once

#include "app/SettingsEditor.h"
#include "widgets/FormPlace.h"

#include <array>

class QCheckBox;
class QLayout;
class QLineEdit;
class QListWidget;

namespace velmora {

class frmSettings : public PlacedDialog {
    Q_OBJECT

public:
    explicit frmSettings(MainModule& main, QWidget* parent = nullptr);

protected:
    void Place() override;
    void hideEvent(QHideEvent* event) override;

private:
    void BuildUi();
    QLayout* BuildEntries();
    QLayout* BuildButtons();
    void Press(int button);
    SettingsEntry Entry() const;
    void Show(const SettingsEntry& entry);

    SettingsEditor editor_;
    std::array<QLineEdit*, 4> txtSet_ = {};
    std::array<QCheckBox*, 2> chkSet_ = {};
    QListWidget* lstSections_ = nullptr;
};

} // namespace velmora
