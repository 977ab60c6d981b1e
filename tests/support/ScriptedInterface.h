// A person who answers by the script: compares every text shown, answers in order, and fails the test on a question
// that nobody expected or an answer that nobody asked for.
#pragma once

#include "platform/UserInterface.h"

#include <deque>
#include <functional>
#include <string>
#include <variant>

namespace velmora {

class ScriptedInterface : public UserInterface {
public:
    using Fail = std::function<void(const std::string&)>;

    explicit ScriptedInterface(Fail fail) : fail_(std::move(fail)) {}
    ~ScriptedInterface() override {
        for (const Step& step : script_)
            fail_("never shown: " + step.text);
    }

    /// A message box: its whole text, icon and buttons, and what is answered.
    void Expect(const std::string& text, Icon icon, Buttons buttons = Buttons::Ok, Answer answer = Answer::Ok) {
        script_.push_back({text, icon, buttons, answer, {}});
    }
    /// A file or folder chooser with this title; nothing chosen: cancelled.
    void ExpectChooser(const std::string& title, std::optional<std::filesystem::path> chosen) {
        script_.push_back({title, Icon::None, Buttons::Ok, Answer::Ok, std::move(chosen)});
    }

    int beeps = 0;
    std::vector<std::string> progressTexts;

    Answer Show(const Message& message) override {
        const Step step = Next(message.text);
        if (step.icon != message.icon || step.buttons != message.buttons || message.title != "Velmora")
            fail_("other icon, buttons or title: " + message.text);
        return step.answer;
    }
    void Beep() override { ++beeps; }
    std::unique_ptr<Progress> StartProgress(const std::string& text, int) override {
        progressTexts.push_back(text);
        return std::make_unique<Silent>();
    }
    std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override {
        return Next(request.title).chosen;
    }
    std::optional<std::filesystem::path> ChooseFolder(const std::string& title,
                                                      const std::filesystem::path&) override {
        return Next(title).chosen;
    }

private:
    struct Step {
        std::string text;
        Icon icon;
        Buttons buttons;
        Answer answer;
        std::optional<std::filesystem::path> chosen;
    };
    class Silent : public Progress {
        void Advance(int) override {}
    };

    Step Next(const std::string& text) {
        if (script_.empty() || script_.front().text != text) {
            fail_("not expected: " + text + (script_.empty() ? "" : "\n   instead of: " + script_.front().text));
            return {text, Icon::None, Buttons::Ok, Answer::Cancel, {}};
        }
        Step step = script_.front();
        script_.pop_front();
        return step;
    }

    Fail fail_;
    std::deque<Step> script_;
};

} // namespace velmora
