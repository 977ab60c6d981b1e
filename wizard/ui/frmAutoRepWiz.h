// The auto-fill wizard's window: holds what its pages have collected and shows one after the other.
#pragma once

#include "platform/FontCatalogue.h"
#include "widgets/Controls.h"
#include "widgets/WizardFrame.h"
#include "wizard/TabSample.h"
#include "wizard/WizardState.h"

#include <optional>

class QHBoxLayout;

namespace velmora {

class PaintedTabs;

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
    /// The chooser's Finish: fills the tabs, remembers how, and closes; the page stays where the tabs are too many.
    void Finish();
    WizardState& State() { return state_; }
    const FontCatalogue& Fonts() const { return fonts_; }
    bool IsFontsAlone() const { return start_ == Start::Fonts; }
    TabSample& Sample() { return *sample_; }
    /// The sample's, from then on.
    void UseFonts(const FontSettings& fonts);

private:
    const FontCatalogue& fonts_;
    Start start_;
    PageMaker makePage_;
    WizardState state_;
    std::optional<TabSample> sample_; ///< always there
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
    /// The tab with the names of its fields, and a caption.
    void ShowExample(const QString& caption = {});
    /// The first and the last new tab as they would be filled now, with the current field marked where `atWork`.
    void ShowNewTabs(bool atWork);
    /// The same again; `entries` of the current field in place of its values.
    void PaintNewTabs(const std::optional<ValueSeries>& entries = std::nullopt);
    /// The names of the fields, below the tabs.
    void NameFields();
    /// Beside an answer: what is counted, or wanted.
    static QHBoxLayout* Beside(QWidget* answer, QWidget* more);

private:
    frmAutoRepWiz& wizard_;
    WizardPage page_;
    PageTexts texts_;
    PaintedTabs* tabs_;
    bool atWork_ = false;
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
