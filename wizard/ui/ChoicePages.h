// The wizard's pages up to the kind of values: introduction, count and type.
#pragma once

#include "wizard/ui/frmAutoRepWiz.h"

class QButtonGroup;
class QLabel;
class QLineEdit;

namespace velmora {

class WarningLine;

class frmAutoRepWiz1 : public AutoRepForm {
public:
    explicit frmAutoRepWiz1(frmAutoRepWiz& wizard);
    void Next() override;
};

class frmAutoRepWiz2 : public AutoRepForm {
public:
    explicit frmAutoRepWiz2(frmAutoRepWiz& wizard);
    void Next() override;
    QWidget* FirstFocus() override;

private:
    void AddStarts();
    void Typed();
    /// Gives CheckCount's message.
    std::optional<std::string> CheckTyped();
    void ShowPlace();

    QLineEdit* txtNoOfPages_;
    QButtonGroup* optFrom_; ///< 1: behind the last text
    QLabel* lblPlace_;
    WarningLine* lblReplaced_;
};

class frmAutoRepWiz2b : public AutoRepForm {
public:
    explicit frmAutoRepWiz2b(frmAutoRepWiz& wizard);
    void Next() override;
    QWidget* FirstFocus() override;

private:
    QButtonGroup* kinds_; ///< by ValueKind
};

} // namespace velmora
