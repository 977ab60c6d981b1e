// The one window of a wizard, whose pages are exchanged in place: picture on the left, heading, question and answer on
// the right, and at the foot the buttons, always in the same places.
#pragma once

#include "widgets/AnswerLabel.h"
#include "workspace/mdlMain.h"

#include <QDialog>

#include <array>
#include <memory>
#include <optional>

class QLayout;
class QPushButton;
class QVBoxLayout;

namespace velmora {

enum class WizardButton { Cancel, Previous, Next, Finish };
inline constexpr int kWizardButtons = 4;

/// A page. It says which buttons it has and what they do; the frame calls it, within Trapped.
class WizardForm : public QWidget {
    Q_OBJECT

public:
    /// `positionKey` must outlive the page.
    WizardForm(const char* name, const char* positionKey);

    const char* PositionKey() const { return positionKey_; }
    /// The caption of a button that the page has and whether it can do something now; nullopt for one it has not.
    struct ButtonState {
        QString caption;
        bool enabled = true;
    };
    const std::optional<ButtonState>& Button(WizardButton button) const { return buttons_[Index(button)]; }

    /// True when the wizard may close: the page asks here what it has to ask.
    virtual bool Cancel() { return true; }
    virtual void Previous() {}
    virtual void Next() {}
    virtual void Finish() {}
    /// Where the next entry is due; nullptr: on the default button.
    virtual QWidget* FirstFocus() { return nullptr; }
    /// True where Finish is the default although Next could go on.
    virtual bool PrefersFinish() const { return false; }
    /// Heading and texts, as they are read when the page comes up.
    QString Explanation() const { return explanation_.join(' '); }

signals:
    void ButtonsChanged();
    /// The last entry was left with Enter: the default button is next.
    void EntriesDone();
    /// What the page says to what was just done in it, for who does not see it: read at the control in use.
    void Answered(const QString& text);

protected:
    /// Every page has Cancel; the other buttons are there once they are set, with the captions "&Previous", "&Next" and
    /// "&Finish".
    void SetButton(WizardButton button, bool enabled = true);
    void SetButton(WizardButton button, bool enabled, const QString& caption);

    /// The column on the left, with a caption below the picture; without a picture the page has none.
    void SetPicture(QWidget* picture, const QString& caption = {});
    void SetHeading(const QString& heading);
    /// A text below what is there, wrapped.
    QLabel* AddText(const QString& text);
    /// A question, wrapped, with its answer below, which fills the line unless its width is limited, in a row of
    /// controls where one is given; its mnemonic leads to the answer.
    QLabel* AddQuestion(const QString& question, QWidget* answer, QLayout* row = nullptr);
    /// Heading, texts and answers from top to bottom; what is added later stands below.
    QVBoxLayout& Content() { return *content_; }
    /// Where the picture stands, for what belongs below it.
    QVBoxLayout& PictureColumn() { return *pictureColumn_; }

private:
    static std::size_t Index(WizardButton button) { return static_cast<std::size_t>(button); }

    const char* positionKey_;
    QVBoxLayout* pictureColumn_;
    QVBoxLayout* content_;
    QStringList explanation_;
    std::array<std::optional<ButtonState>, kWizardButtons> buttons_;
};

/// Escape and the window's own button are Cancel. The default button is Next, or Finish where Next is disabled. The
/// place is kept under the position key of each page that is left, and comes back under that of the first one, so that
/// the window never jumps.
class WizardFrame : public QDialog {
    Q_OBJECT

public:
    /// `main` must outlive the frame. Show a page, then open() the frame, which runs no loop of its own: it
    /// deletes itself when it is closed.
    WizardFrame(MainModule& main, const QString& title, QWidget* parent);

    /// Takes the place of the page shown, which is deleted as soon as it has returned.
    void ShowPage(std::unique_ptr<WizardForm> page);
    WizardForm* Page() const { return page_; }
    MainModule& Main() { return main_; }

    void reject() override;

    void setVisible(bool visible) override;

protected:
    void hideEvent(QHideEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void BuildUi();
    void Pressed(WizardButton button);
    void ShowButtons();
    QPushButton* DefaultButton() const;
    void LeadTabToButtons();
    void FocusPage();
    void GrowToPage();
    QPushButton* Button(WizardButton button) const { return buttons_[static_cast<std::size_t>(button)]; }

    MainModule& main_;
    QVBoxLayout* pageArea_ = nullptr;
    WizardForm* page_ = nullptr;
    Description explanation_; ///< of the page, on the control that has the focus first
    std::array<QPushButton*, kWizardButtons> buttons_ = {};
    QPushButton* cmdHelp_ = nullptr;
};

} // namespace velmora
