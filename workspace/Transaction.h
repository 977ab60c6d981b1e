// All or nothing: an operation that ends in an error leaves document, fonts, configuration and settings as they were.
#pragma once

#include "workspace/mdlMain.h"

#include <optional>

namespace velmora {

/// Takes a copy of what an operation may change. Without Commit, its end puts everything back; settings reach the INI
/// file only with Commit.
class Transaction {
public:
    explicit Transaction(MainModule& main)
        : main_(main), pause_(main.recovery), batch_(main.settings), document_(main.document), globals_(main.globals),
          fonts_(main.fonts) {}
    ~Transaction() { Undo(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// The change stands, also where the INI file cannot be written, which is reported: the program has its own copy
    /// of the settings that a document carries.
    void Commit() { batch_.reset(); }

    void Undo() {
        if (!batch_)
            return;
        batch_->Discard();
        batch_.reset();
        main_.document = std::move(document_);
        main_.globals = globals_;
        main_.fonts = fonts_;
    }

private:
    MainModule& main_;
    RecoveryStore::Pause pause_;
    std::optional<SettingsBatch> batch_;
    TabDocument document_;
    GlobalConfiguration globals_;
    FontSettings fonts_;
};

} // namespace velmora
