#include "widgets/WizardFrame.h"

#include "widgets/FormPlace.h"
#include "widgets/HelpRequest.h"
#include "workspace/Dialogs.h"

#include <QFrame>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>
#include <QVBoxLayout>

#include <algorithm>

namespace velmora {
namespace {

struct ButtonText {
    const char* name;
    const char* caption;
};
constexpr std::array<ButtonText, kWizardButtons> kButtonTexts = {
    {{"cmdCancel", "&Cancel"}, {"cmdPrevious", "&Previous"}, {"cmdNext", "&Next"}, {"cmdFinish", "&Finish"}}};
constexpr const char* kWidestCaption = "&Next Field";

// Room for the fullest page, in the desktop's own letters and lines.
constexpr int kPageLetters = 124;
constexpr int kPageLines = 21;
constexpr int kGap = 12;
constexpr int kAnswerGap = 6;
constexpr int kColumnGap = 24;
constexpr QSize kAroundPage(64, 160); // frame, margins and buttons, in the largest letters

QLabel* WrappedLabel(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

} // namespace

WizardForm::WizardForm(const char* name, const char* positionKey)
    : positionKey_(positionKey), pictureColumn_(new QVBoxLayout), content_(new QVBoxLayout) {
    setObjectName(name);
    auto* columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->setSpacing(0);
    for (QVBoxLayout* column : {pictureColumn_, content_}) {
        column->setSpacing(kGap);
        auto* atTop = new QVBoxLayout;
        atTop->addLayout(column);
        atTop->addStretch(1);
        columns->addLayout(atTop, column == content_ ? 1 : 0);
    }
    SetButton(WizardButton::Cancel);
}

void WizardForm::SetButton(WizardButton button, bool enabled) {
    const auto& now = buttons_[Index(button)];
    SetButton(button, enabled, now ? now->caption : tr(kButtonTexts[Index(button)].caption));
}

void WizardForm::SetButton(WizardButton button, bool enabled, const QString& caption) {
    buttons_[Index(button)] = {caption, enabled};
    emit ButtonsChanged();
}

void WizardForm::SetPicture(QWidget* picture, const QString& caption) {
    pictureColumn_->setContentsMargins(0, 0, kColumnGap, 0);
    pictureColumn_->addWidget(picture);
    if (!caption.isEmpty()) {
        QLabel* below = WrappedLabel(caption);
        below->setAlignment(Qt::AlignHCenter);
        below->setFixedWidth(picture->sizeHint().width());
        pictureColumn_->addWidget(below);
        explanation_ << caption;
    }
}

void WizardForm::SetHeading(const QString& heading) {
    if (heading.isEmpty())
        return;
    QLabel* label = AddText(heading);
    label->setObjectName("lblHeading");
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
}

QLabel* WizardForm::AddText(const QString& text) {
    QLabel* label = WrappedLabel(text);
    content_->addWidget(label);
    if (!text.isEmpty())
        explanation_ << text;
    return label;
}

QLabel* WizardForm::AddQuestion(const QString& question, QWidget* answer, QLayout* row) {
    QLabel* label = WrappedLabel(question);
    label->setBuddy(answer);
    auto* together = new QVBoxLayout;
    together->setSpacing(kAnswerGap);
    together->addWidget(label);
    if (row)
        together->addLayout(row);
    else
        together->addWidget(answer, 0, answer->maximumWidth() < QWIDGETSIZE_MAX ? Qt::AlignLeft : Qt::Alignment());
    content_->addLayout(together);
    return label;
}

WizardFrame::WizardFrame(MainModule& main, const QString& title, QWidget* parent) : QDialog(parent), main_(main) {
    setObjectName("frmWizard");
    setWindowTitle(title);
    setAttribute(Qt::WA_DeleteOnClose);
    BuildUi();
    // Closed together with its question, it leaves some window managers with no window for the keys.
    connect(this, &QDialog::finished, this, [this] {
        if (QWidget* owner = parentWidget())
            owner->activateWindow();
    });
}

void WizardFrame::BuildUi() {
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(kGap);
    pageArea_ = new QVBoxLayout;
    layout->addLayout(pageArea_, 1);
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    layout->addWidget(line);
    auto* foot = new QHBoxLayout;
    layout->addLayout(foot);
    const int width = QPushButton(tr(kWidestCaption)).sizeHint().width();
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        auto* button = new QPushButton(tr(kButtonTexts[i].caption));
        button->setObjectName(kButtonTexts[i].name);
        button->setMinimumWidth(width);
        connect(button, &QPushButton::clicked, this, [this, i] { Pressed(static_cast<WizardButton>(i)); });
        foot->addWidget(button);
        if (i == 0) {
            cmdHelp_ = MakeHelpButton();
            foot->addWidget(cmdHelp_);
            foot->addStretch();
        }
        buttons_[i] = button;
    }
}

void WizardFrame::Pressed(WizardButton button) {
    if (button == WizardButton::Cancel) {
        reject();
        return;
    }
    Trapped(main_.ui, "Called from Sub: " + page_->objectName().toStdString(), [&] {
        switch (button) {
        case WizardButton::Previous: return page_->Previous();
        case WizardButton::Next: return page_->Next();
        case WizardButton::Finish: return page_->Finish();
        case WizardButton::Cancel: break;
        }
    });
}

void WizardFrame::ShowPage(std::unique_ptr<WizardForm> page) {
    if (page_) {
        if (isVisible())
            SavePlace(*this, main_.settings, page_->PositionKey());
        pageArea_->removeWidget(page_);
        page_->hide();
        page_->setParent(nullptr);
        page_->deleteLater(); // it may be the one that called
    }
    page_ = page.release();
    pageArea_->addWidget(page_);
    page_->show();
    connect(page_, &WizardForm::ButtonsChanged, this, &WizardFrame::ShowButtons);
    connect(page_, &WizardForm::Answered, this,
            [this](const QString& text) { explanation_.Give(focusWidget(), text); });
    connect(page_, &WizardForm::EntriesDone, this, [this] { DefaultButton()->setFocus(Qt::TabFocusReason); });
    LeadTabToButtons();
    GrowToPage();
    ShowButtons();
    FocusPage();
}

/// Next stays the default while neither can do anything.
void WizardFrame::ShowButtons() {
    for (std::size_t i = 0; i < buttons_.size(); ++i) {
        const auto& state = page_->Button(static_cast<WizardButton>(i));
        buttons_[i]->setVisible(state.has_value());
        buttons_[i]->setEnabled(state && state->enabled);
        if (state)
            buttons_[i]->setText(state->caption);
    }
    const bool finish = Button(WizardButton::Finish)->isEnabled() &&
                        (page_->PrefersFinish() || !Button(WizardButton::Next)->isEnabled());
    Button(finish ? WizardButton::Finish : WizardButton::Next)->setDefault(true);
}

/// From a page's last control to the one that goes on.
void WizardFrame::LeadTabToButtons() {
    QWidget* last = nullptr;
    for (QWidget* control : page_->findChildren<QWidget*>())
        if (control->focusPolicy() & Qt::TabFocus)
            last = control;
    for (QWidget* button : {Button(WizardButton::Next), Button(WizardButton::Finish), Button(WizardButton::Previous),
                            Button(WizardButton::Cancel), cmdHelp_}) {
        if (last)
            setTabOrder(last, button);
        last = button;
    }
}

QPushButton* WizardFrame::DefaultButton() const {
    return Button(Button(WizardButton::Finish)->isDefault() ? WizardButton::Finish : WizardButton::Next);
}

void WizardFrame::FocusPage() {
    QWidget* first = page_->FirstFocus();
    if (!first)
        first = DefaultButton();
    explanation_.Give(first, page_->Explanation());
    first->setFocus(Qt::TabFocusReason); // which selects an entry's text
}

/// One smallest size for all pages, which fits the screen; only a page whose wrapped texts need more, in a very large
/// font, gets more.
void WizardFrame::GrowToPage() {
    if (!page_)
        return;
    const QSize wanted(kPageLetters * fontMetrics().averageCharWidth(), kPageLines * fontMetrics().lineSpacing());
    const QSize smallest = wanted.boundedTo(screen()->availableSize() - kAroundPage);
    const int width = std::max(smallest.width(), page_->width());
    const int needed = page_->layout()->hasHeightForWidth() ? page_->layout()->totalMinimumHeightForWidth(width)
                                                            : page_->layout()->totalMinimumSize().height();
    page_->setMinimumSize(smallest.width(), std::max(smallest.height(), needed));
}

void WizardFrame::reject() {
    bool close = true;
    Trapped(main_.ui, "Called from Sub: " + page_->objectName().toStdString(), [&] { close = page_->Cancel(); });
    if (close)
        QDialog::reject();
}

void WizardFrame::setVisible(bool visible) {
    if (visible && !isVisible()) {
        adjustSize();
        RestorePlace(*this, main_.settings, page_->PositionKey());
    }
    QDialog::setVisible(visible);
}

void WizardFrame::hideEvent(QHideEvent* event) {
    if (!event->spontaneous())
        SavePlace(*this, main_.settings, page_->PositionKey());
    QDialog::hideEvent(event);
}

void WizardFrame::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    GrowToPage();
}

} // namespace velmora
