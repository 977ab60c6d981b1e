// All or nothing: an operation that ends in an error leaves document, fonts, configuration and settings as they were.
#pragma once

#include "document/mdlMain.h"

namespace velmora {

/// Takes a copy of what an operation may change. Without Commit, its end puts everything back; settings reach the INI
/// file only with Commit.
class Transaction {
public:
    explicit Transaction(MainModule& main)
        : main_(main), batch_(main.settings), document_(main.document), globals_(main.globals), fonts_(main.fonts) {}
    ~Transaction() { Undo(); }
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    /// Raises FileAccessError, with everything put back, when the settings cannot be written.
    void Commit() {
        batch_.Commit();
        open_ = false;
    }

    void Undo() {
        if (!open_)
            return;
        open_ = false;
        batch_.Discard();
        main_.document = std::move(document_);
        main_.globals = globals_;
        main_.fonts = fonts_;
    }

private:
    MainModule& main_;
    SettingsBatch batch_;
    TabDocument document_;
    GlobalConfiguration globals_;
    FontSettings fonts_;
    bool open_ = true;
};

} // namespace velmora
