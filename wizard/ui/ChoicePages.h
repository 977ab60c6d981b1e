// The wizard's pages up to the kind of values: introduction, count, field chooser and type.
#pragma once

#include "wizard/ui/frmAutoRepWiz.h"

#include <array>

class QButtonGroup;
class QLabel;
class QLineEdit;
class QPushButton;

namespace velmora {

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
    void Typed();

    QLineEdit* txtNoOfPages_;
    QLabel* lblPlace_ = nullptr;
};

class frmAutoRepWiz2a : public AutoRepForm {
public:
    explicit frmAutoRepWiz2a(frmAutoRepWiz& wizard);
    void Next() override;
    void Finish() override;
    QWidget* FirstFocus() override;
    bool PrefersFinish() const override { return allDone_; }

private:
    QPushButton* MakeFieldButton(int fieldNo);

    bool allDone_;
    QPushButton* firstDue_ = nullptr; ///< of the fields in use without values
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
