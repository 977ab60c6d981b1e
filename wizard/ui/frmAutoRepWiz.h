// The auto-fill wizard's window: holds what its pages have collected and shows one after the other.
#pragma once

#include "platform/FontCatalogue.h"
#include "widgets/Controls.h"
#include "widgets/WizardFrame.h"
#include "wizard/WizardState.h"

#include <map>

namespace velmora {

class frmAutoRepWiz : public WizardFrame {
public:
    enum class Start {
        Wizard, ///< at the introduction
        Fonts   ///< the font page alone
    };
    using PageMaker = std::unique_ptr<WizardForm> (*)(frmAutoRepWiz& wizard, WizardPage page);

    /// `main` and `fonts` must outlive it. The page on screen is taken into the document first.
    frmAutoRepWiz(MainModule& main, const FontCatalogue& fonts, Start start, PageMaker makePage, QWidget* parent);

    void Go(WizardPage page);
    void Close() { accept(); }
    WizardState& State() { return state_; }
    const FontCatalogue& Fonts() const { return fonts_; }
    bool IsFontsAlone() const { return start_ == Start::Fonts; }
    /// Loaded once, so that a missing picture is told once.
    const QPixmap& Picture(const std::string& fileName);

private:
    const FontCatalogue& fonts_;
    Start start_;
    PageMaker makePage_;
    WizardState state_;
    std::map<std::string, QPixmap> pictures_;
};

/// What all its pages have in common: name, heading, Cancel and Previous.
class AutoRepForm : public WizardForm {
public:
    bool Cancel() override;
    void Previous() override;

protected:
    AutoRepForm(frmAutoRepWiz& wizard, WizardPage page);

    WizardState& State() { return wizard_.State(); }
    MainModule& Main() { return wizard_.Main(); }
    frmAutoRepWiz& Wizard() { return wizard_; }
    const PageTexts& Texts() const { return texts_; }
    /// The picture of the tab without a field at work.
    void ShowTabPicture(const QString& caption = {});
    /// The picture that marks the current field, and the names of the fields.
    void ShowFieldPicture();

private:
    frmAutoRepWiz& wizard_;
    WizardPage page_;
    PageTexts texts_;
};

/// The control with its name and its index, from 1, in brackets.
template <typename Control> Control* Named(Control* control, const char* name, int index) {
    control->setObjectName(QString("%1(%2)").arg(name).arg(index));
    return control;
}

/// The text with its first `letter` as the mnemonic.
QString WithMnemonic(std::string_view text, char letter);
/// As wide as so many wide letters.
void SetLetters(QWidget& entry, int letters);

/// "Field A" to "Field C", with mnemonics beside those of the frame's buttons.
QString FieldCaption(int fieldNo);

} // namespace velmora
