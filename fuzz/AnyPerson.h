// A person who answers by chance: every message box and chooser, and every dialog or menu that comes to the front,
// whatever it is, is meddled with for a while and then left.
#pragma once

#include "platform/qt/QtUserInterface.h"

#include <QAbstractButton>
#include <QAbstractEventDispatcher>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>

#include <array>
#include <functional>
#include <random>

namespace velmora {

class Chance {
public:
    explicit Chance(unsigned seed) : engine_(seed) {}
    int Below(int count) { return static_cast<int>(engine_() % static_cast<unsigned>(count)); }
    bool OneIn(int count) { return Below(count) == 0; }
    template <typename Row> const auto& Of(const Row& row) {
        return row[static_cast<std::size_t>(Below(static_cast<int>(std::size(row))))];
    }

private:
    std::mt19937 engine_;
};

/// What was done last, for the message of a failure.
class Trail {
public:
    void Note(const std::string& what) {
        text_ += " " + what;
        if (text_.size() > 2 * kShown)
            text_.erase(0, kShown);
    }
    [[noreturn]] void Fail(const std::string& what) const { qFatal("After%s\n%s", text_.c_str(), what.c_str()); }

private:
    static constexpr std::size_t kShown = 2500;
    std::string text_;
};

inline void TypeInto(QWidget& entry, const QString& text) {
    QInputMethodEvent typed;
    typed.setCommitString(text);
    QApplication::sendEvent(&entry, &typed);
}

/// Acts whenever the program waits for its person with a modal window or a popup in front.
class Meddler : public QObject {
public:
    Meddler(Chance& chance, Trail& trail) : chance_(chance), trail_(trail) {
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this, [this] {
            if (Front() && !std::exchange(due_, true))
                QMetaObject::invokeMethod(
                    this, [this] { Act(); }, Qt::QueuedConnection);
        });
    }
    /// Until no modal window and no popup is left.
    void Settle() {
        QApplication::processEvents();
        while (Front()) {
            Act();
            QApplication::processEvents();
        }
        acts_ = 0;
        patience_ = 3 + chance_.Below(20);
    }
    /// One thing that can be done in a window.
    void Meddle(QWidget& window) {
        std::vector<QWidget*> controls;
        for (auto* control : window.findChildren<QWidget*>())
            if (control->isVisible() && control->isEnabled() && IsControl(*control))
                controls.push_back(control);
        if (controls.empty() || chance_.OneIn(4))
            return PressKey(window);
        QWidget& control = *chance_.Of(controls);
        trail_.Note(Name(control));
        if (auto* button = qobject_cast<QAbstractButton*>(&control))
            button->click();
        else if (auto* slider = qobject_cast<QAbstractSlider*>(&control))
            slider->setValue(slider->minimum() + chance_.Below(slider->maximum() - slider->minimum() + 1));
        else
            Use(control);
    }
    void PressKey(QWidget& window) {
        const Qt::Key key = chance_.Of(
            std::array{Qt::Key_Tab,   Qt::Key_Backtab,   Qt::Key_Return, Qt::Key_Up,       Qt::Key_Down,   Qt::Key_Left,
                       Qt::Key_Right, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_X,
                       Qt::Key_Space, Qt::Key_Home,      Qt::Key_End,    Qt::Key_F1,       Qt::Key_F,      Qt::Key_A,
                       Qt::Key_1,     Qt::Key_Plus,      Qt::Key_Escape});
        const auto modifier = chance_.Of(std::array{Qt::NoModifier, Qt::NoModifier, Qt::NoModifier, Qt::ControlModifier,
                                                    Qt::ShiftModifier, Qt::AltModifier});
        Press(window.focusWidget() ? *window.focusWidget() : window, key, modifier);
    }

private:
    static constexpr int kMostActs = 400;

    static QWidget* Front() {
        QWidget* popup = QApplication::activePopupWidget();
        return popup ? popup : QApplication::activeModalWidget();
    }
    static bool IsControl(const QWidget& widget) {
        const auto* entry = qobject_cast<const QLineEdit*>(&widget);
        return (entry && !entry->isReadOnly()) || qobject_cast<const QAbstractButton*>(&widget) ||
               qobject_cast<const QComboBox*>(&widget) || qobject_cast<const QAbstractSpinBox*>(&widget) ||
               qobject_cast<const QAbstractItemView*>(&widget) || qobject_cast<const QAbstractSlider*>(&widget);
    }
    static std::string Name(const QWidget& widget) {
        return (widget.objectName().isEmpty() ? QString(widget.metaObject()->className()) : widget.objectName())
            .toStdString();
    }

    void Act() {
        due_ = false;
        QWidget* front = Front();
        if (!front)
            return;
        if (++acts_ > kMostActs)
            trail_.Fail("cannot be left: " + Name(*front));
        if (acts_ == 1)
            trail_.Note("{" + Name(*front) + "}");
        if (acts_ <= patience_ && !qobject_cast<QMessageBox*>(front))
            Meddle(*front);
        else
            Leave(*front);
    }
    void Leave(QWidget& front) {
        const auto buttons = front.findChildren<QAbstractButton*>();
        if (buttons.isEmpty() || chance_.OneIn(3))
            return Press(front, Qt::Key_Escape, Qt::NoModifier);
        QAbstractButton& button = *buttons[chance_.Below(static_cast<int>(buttons.size()))];
        trail_.Note(Name(button));
        button.click();
    }
    void Use(QWidget& control) {
        if (qobject_cast<QAbstractItemView*>(&control) || qobject_cast<QComboBox*>(&control)) {
            for (int count = chance_.Below(4); count >= 0; --count)
                QTest::keyClick(&control, chance_.Of(std::array{Qt::Key_Down, Qt::Key_Down, Qt::Key_Up}));
            return;
        }
        QTest::keyClick(&control, Qt::Key_A, Qt::ControlModifier);
        const QString text = QString::fromUtf8(chance_.Of(
            std::array{"", "0", "1", "3", "7", "12", "25", "40", "-1", "1,5", "2.5", "1e3", "9999", "a", "\xc3\xa9",
                       " ", "2-4", "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"}));
        trail_.Note("'" + text.toStdString() + "'");
        TypeInto(control, text);
    }
    void Press(QWidget& target, Qt::Key key, Qt::KeyboardModifier modifier) {
        trail_.Note("key " + QKeySequence(QKeyCombination(modifier, key)).toString().toStdString());
        QTest::keyClick(&target, key, modifier);
    }

    Chance& chance_;
    Trail& trail_;
    bool due_ = false;
    int acts_ = 0;
    int patience_ = 5;
};

/// Answers what the buttons of a box allow, and chooses one of a few files, or none. No error may be reported.
class AnyAnswer : public QtUserInterface {
public:
    AnyAnswer(Chance& chance, Trail& trail, std::filesystem::path folder)
        : chance_(chance), trail_(trail), folder_(std::move(folder)) {}

    Answer Show(const Message& message) override {
        trail_.Note("[" + message.text.substr(0, 60) + "]");
        if (IsFault(message.text))
            trail_.Fail("an error was shown: " + message.text);
        const Answer answer = AnswerTo(message);
        trail_.Note("-> " + std::to_string(static_cast<int>(answer)));
        restored = message.text.starts_with("Velmora ended") ? answer == Answer::Yes : restored;
        return answer;
    }
    void Beep() override {}
    std::unique_ptr<Progress> StartCancellable(const std::string&, int) override {
        return std::make_unique<Impatient>(chance_.Below(40));
    }
    std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override {
        const std::filesystem::path path =
            folder_ / (request.title == "Save as PDF"
                           ? "out.pdf"
                           : chance_.Of(std::array{"a.csv", "b.csv", "in.csv", "list.txt", "c.xlsx", "d.xls"}));
        if (chance_.OneIn(4) || (request.operation == "OPEN" && !std::filesystem::exists(path)))
            return std::nullopt;
        trail_.Note(path.filename().string());
        return path;
    }
    std::optional<std::filesystem::path> ChooseFolder(const std::string&, const std::filesystem::path&) override {
        return std::nullopt;
    }

    bool restored = false; ///< what the last offer of lost work was answered

private:
    /// Cancels after some steps.
    class Impatient : public Progress {
    public:
        explicit Impatient(int patience) : left_(patience) {}
        void Advance(int) override { --left_; }
        bool Cancelled() const override { return left_ < 0; }

    private:
        int left_;
    };

    /// A margin is stored as it was typed, and only printing looks whether it is one, and says so twice.
    bool IsFault(const std::string& text) {
        const bool margin = text.starts_with("Type mismatch: Margin Value");
        const bool follows = std::exchange(oddMargin_, margin) && text.starts_with("Problem getting");
        return !margin && !follows &&
               (text.find("\r\nCalled f") != std::string::npos || text.find("Velmora.ini") != std::string::npos);
    }
    Answer AnswerTo(const Message& message) {
        if (chance_.OneIn(4))
            return QtUserInterface::Show(message); // where the Meddler presses a button
        switch (message.buttons) {
        case Buttons::YesNo: return chance_.Of(std::array{Answer::Yes, Answer::No});
        case Buttons::YesNoCancel: return chance_.Of(std::array{Answer::Yes, Answer::No, Answer::Cancel});
        case Buttons::RetryCancel: return Answer::Cancel;
        case Buttons::Ok: break;
        }
        return Answer::Ok;
    }

    Chance& chance_;
    Trail& trail_;
    std::filesystem::path folder_;
    bool oddMargin_ = false;
};

} // namespace velmora
