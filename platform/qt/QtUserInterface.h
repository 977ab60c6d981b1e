// Message boxes, choosers and progress as the desktop draws them.
#pragma once

#include "platform/UserInterface.h"

namespace velmora {

class QtUserInterface : public UserInterface {
public:
    Answer Show(const Message& message) override;
    void Beep() override;
    std::unique_ptr<Progress> StartProgress(const std::string& text, int total) override;
    std::unique_ptr<Progress> StartCancellable(const std::string& text, int total) override;
    std::optional<std::filesystem::path> ChooseFile(const FileRequest& request) override;
    std::optional<std::filesystem::path> ChooseFolder(const std::string& title,
                                                      const std::filesystem::path& start) override;
    std::optional<Credentials> AskForCredentials(const CredentialsRequest& request) override;
};

} // namespace velmora
