// How the program speaks to the person in front of it: message boxes, choosers, a beep, the hourglass, progress.
#pragma once

#include "platform/Credentials.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>

namespace velmora {

enum class Buttons { Ok, YesNo, YesNoCancel, RetryCancel };
enum class Icon { None, Information, Question, Exclamation, Critical };
/// The numbers are the desktop family's own.
enum class Answer { Other = 0, Ok = 1, Cancel = 2, Retry = 4, Yes = 6, No = 7 };

/// A modal message box. Lines are joined with CR LF.
struct Message {
    std::string text;
    std::string title;
    Icon icon = Icon::None;
    Buttons buttons = Buttons::Ok;
    std::optional<Answer> defaultButton = std::nullopt; ///< nullopt: the first button
    bool* notAgain = nullptr; ///< set when the box closes: its "Do not ask again" was ticked; nullptr: no such tick
    std::string other = {};   ///< caption of a button beside these, which gives Other; empty: there is none
};

struct FileRequest {
    std::string operation; ///< "OPEN" or "SAVE"
    std::string title;
    std::filesystem::path folder;
    std::string filter;           ///< "Text (*.txt)|*.txt|..." pairs
    std::string defaultName;      ///< a file name without folder; proposed for opening where there is such a file
    std::string moreFilters = {}; ///< further pairs, offered after those of `filter`
    int chosenFilter = 0;         ///< the pair to start with, from 0
};

/// A window with a text and a bar, shown from its making to its end. Calling Advance once per tab is cheap: the
/// window repaints only as often as an eye can follow.
class Progress {
public:
    virtual ~Progress() = default;
    /// `done` of the total that the window was opened with.
    virtual void Advance(int done) = 0;
    /// True once the person has pressed Cancel.
    virtual bool Cancelled() const { return false; }
};

class UserInterface {
public:
    virtual ~UserInterface() = default;
    /// Closing the box without a button gives Cancel where there is one, else No, else Ok.
    virtual Answer Show(const Message& message) = 0;
    virtual void Beep() = 0;
    /// Also turns the pointer into the hourglass until the progress ends. `total` is at least 1.
    virtual std::unique_ptr<Progress> StartProgress(const std::string& text, int total) = 0;
    /// The same with a Cancel button; the work asks Cancelled after each Advance. A `total` of 0 is not known.
    virtual std::unique_ptr<Progress> StartCancellable(const std::string& text, int total) = 0;
    /// The chosen path, or nullopt when the person cancelled.
    virtual std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) = 0;
    virtual std::optional<std::filesystem::path> ChooseFolder(const std::string& title,
                                                              const std::filesystem::path& start) = 0;
    /// What a print server wants to know; nullopt when the person cancelled. Never stored.
    virtual std::optional<Credentials> AskForCredentials(const CredentialsRequest& request) = 0;
};

} // namespace velmora
