// A person who answers by the script: compares every text shown, answers in order, and fails the test on a question
// that nobody expected or an answer that nobody asked for. Such a question is closed as by its frame, and the test goes
// on.
#pragma once

#include "platform/UserInterface.h"

#include <deque>
#include <functional>
#include <string>

namespace velmora {

/// Thrown where a test cannot go on; no std::exception, which the program would report before it goes on.
struct TestOver {};

class ScriptedInterface : public UserInterface {
public:
    using Fail = std::function<void(const std::string&)>;

    explicit ScriptedInterface(Fail fail) : fail_(std::move(fail)) {}
    ~ScriptedInterface() override {
        for (const Step& step : script_)
            fail_("never shown: " + step.text);
    }

    /// A message box: its whole text, icon and buttons, what is answered, the default button where one is set, and what
    /// happens while the box is open.
    void Expect(const std::string& text, Icon icon, Buttons buttons = Buttons::Ok, Answer answer = Answer::Ok,
                std::optional<Answer> defaultButton = std::nullopt, std::function<void()> meanwhile = {}) {
        script_.push_back({text, icon, buttons, answer, defaultButton, {}, "", std::move(meanwhile)});
    }
    /// A file or folder chooser with this title; nothing chosen: cancelled. `request` is "operation|filter|name", and
    /// "|" with the filter chosen first unless it is 0.
    void ExpectChooser(const std::string& title, std::optional<std::filesystem::path> chosen,
                       const std::string& request = "") {
        script_.push_back({title, Icon::None, Buttons::Ok, Answer::Ok, std::nullopt, std::move(chosen), request, {}});
    }

    int beeps = 0;
    Credentials credentials;          ///< given where the answer is Ok
    std::string boxTitle = "Velmora"; ///< of all message boxes to come
    bool ticksNotAgain = false;       ///< in every box that offers it
    std::vector<std::string> progressTexts;
    std::filesystem::path folder; ///< where the last file chooser started
    int cancelAfter = -1;         ///< Advance calls until Cancel is pressed in a window that offers it; -1: never

    Answer Show(const Message& message) override {
        const Step step = Next(message.text);
        if (step.unexpected)
            return Closing(message.buttons);
        if (step.icon != message.icon || step.buttons != message.buttons || message.title != boxTitle ||
            step.defaultButton != message.defaultButton)
            fail_("other icon, buttons, default button or title: " + message.text);
        if (message.notAgain)
            *message.notAgain = ticksNotAgain;
        if (step.answer == Answer::Other && message.other.empty())
            fail_("no other button: " + message.text);
        if (step.meanwhile)
            step.meanwhile();
        return step.answer;
    }
    void Beep() override { ++beeps; }
    std::unique_ptr<Progress> StartProgress(const std::string& text, int) override {
        progressTexts.push_back(text);
        return std::make_unique<Silent>();
    }
    std::unique_ptr<Progress> StartCancellable(const std::string& text, int) override {
        progressTexts.push_back(text);
        return std::make_unique<Silent>(cancelAfter);
    }
    std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override {
        folder = request.folder;
        const Step step = Next(request.title);
        const std::string shown = request.operation + "|" + request.filter + "|" + request.defaultName +
                                  (request.chosenFilter > 0 ? "|" + std::to_string(request.chosenFilter) : "");
        if (!step.request.empty() && step.request != shown)
            fail_("other chooser: " + shown);
        return step.chosen;
    }
    std::optional<std::filesystem::path> ChooseFolder(const std::string& title, const std::filesystem::path&) override {
        return Next(title).chosen;
    }
    std::optional<Credentials> AskForCredentials(const CredentialsRequest& request) override {
        return Next("password for " + request.printer).answer == Answer::Ok ? std::optional(credentials) : std::nullopt;
    }

private:
    struct Step {
        std::string text;
        Icon icon;
        Buttons buttons;
        Answer answer;
        std::optional<Answer> defaultButton;
        std::optional<std::filesystem::path> chosen;
        std::string request;
        std::function<void()> meanwhile;
        bool unexpected = false;
    };
    static constexpr int kMostUnexpected = 50;

    class Silent : public Progress {
    public:
        explicit Silent(int cancelAfter = -1) : left_(cancelAfter) {}
        void Advance(int) override { left_ -= left_ > 0 ? 1 : 0; }
        bool Cancelled() const override { return left_ == 0; }

    private:
        int left_;
    };

    static Answer Closing(Buttons buttons) {
        return buttons == Buttons::Ok ? Answer::Ok : buttons == Buttons::YesNo ? Answer::No : Answer::Cancel;
    }
    Step Next(const std::string& text) {
        if (script_.empty() || script_.front().text != text) {
            fail_("not expected: " + text + (script_.empty() ? "" : "\n   instead of: " + script_.front().text));
            if (++unexpected_ > kMostUnexpected)
                throw TestOver();
            return {text, Icon::None, Buttons::Ok, Answer::Cancel, {}, {}, "", {}, true};
        }
        Step step = script_.front();
        script_.pop_front();
        return step;
    }

    Fail fail_;
    std::deque<Step> script_;
    int unexpected_ = 0;
};

} // namespace velmora
