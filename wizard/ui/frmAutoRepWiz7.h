// The font page: typeface, size, style and alignment of each field with a live sample. The wizard's last page, and a
// command of its own on the toolbar.
#pragma once

#include "wizard/FontPage.h"
#include "wizard/ui/frmAutoRepWiz.h"

#include <array>

class QComboBox;
class QGridLayout;
class QLabel;

namespace velmora {

class FieldSample;

class frmAutoRepWiz7 : public AutoRepForm {
public:
    explicit frmAutoRepWiz7(frmAutoRepWiz& wizard);
    void Next() override;
    void Finish() override;
    void Previous() override;
    QWidget* FirstFocus() override;

private:
    void AddField(QGridLayout* grid, int field);
    QComboBox* MakeFontBox(int field);
    QComboBox* MakeSizeBox(int field);
    QWidget* MakeStyleBar(int field);
    QWidget* MakeAlignmentBar(int field, bool horizontal);
    FieldSample* MakeSample(int field);
    void ShowSample(int field);
    void ShowMissing();
    void Store();

    FontPage page_;
    QLabel* lblMissing_ = nullptr;
    std::array<QComboBox*, kFieldsPerTab> cboFont_ = {};
    std::array<FieldSample*, kFieldsPerTab> samples_ = {};
};

} // namespace velmora
