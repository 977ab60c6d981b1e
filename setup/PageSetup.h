// The page set-up dialog frmPageSetUp: tab type and number of fields, chosen in a draft that only the status line
// shows until OK. So editor, recovery timer and undo never meet a document whose texts and properties do not belong
// together.
#pragma once

#include "workspace/Globals.h"
#include "workspace/Margins.h"
#include "workspace/mdlMain.h"

#include <cstdint>
#include <optional>
#include <string>

namespace velmora {

/// What the set-up dialogs begin with.
DocumentSetup SetupDraft(const DocumentSetup& setup);
/// A tab type with its layout, rows and columns; a DL type keeps the DL layout that the draft has. `type` is 0 to 5.
void SetDraftType(DocumentSetup& draft, int type);

/// Of tab type, layout and number of fields.
bool SameChoices(const DocumentSetup& a, const DocumentSetup& b);

/// The margins that come with another layout or another printer; nullopt where both stay. Raises OverflowError as
/// LoadDefaultMargins does.
std::optional<MarginTexts> NewMargins(MainModule& main, const DocumentSetup& draft, const std::string& printer);

/// Gives the document the draft's tab type, layout and fields, with the margins of NewMargins, as one undo step, and
/// the program the printer; shows page 1. Deliberate: with `CurrentTab` at 0 or 1 another sheet size empties the
/// document; a recovery copy is kept before. False after an error, which was shown and left everything as it was.
bool ApplySetup(MainModule& main, const DocumentSetup& draft, const std::string& printer, const std::string& stepName);

/// Whether ApplySetup with this tab type empties a document that holds texts.
bool TakesTextsAway(const TabDocument& document, int optType);

class PageSetup {
public:
    explicit PageSetup(MainModule& main) : main_(main) { ReadDocument(); }

    /// When the dialog comes up, and again when the printer set-up wizard, called from it, has ended: reads the global
    /// configuration, and shows the document's own state where the wizard changed it, else what was chosen. NoPrinter:
    /// as LoadGlobals says.
    LoadOutcome Open();

    int TabType() const { return draft_.OptType; }
    int Fields() const { return draft_.NoOfFields; }
    /// An index outside 0 to 5 is reported and has no effect.
    void ChooseType(int type);
    /// 1 to 3; no effect for any other number.
    void ChooseFields(int fields);

    /// What OK does to the texts of the document: whether they flow on or are emptied; empty where nothing becomes of
    /// them.
    std::string WhatBecomesOfTexts() const;
    std::string Picture() const;      ///< of the chosen stationery: a file name in the images folder
    std::string GridSizeText() const; ///< such as "8 Rows, 3 Colums"
    /// Whether the sample box of field 0 to 2 shows, and the code of its horizontal alignment.
    bool SampleShown(int field) const { return field < draft_.NoOfFields; }
    std::int16_t SampleAlignment(int field) const {
        return main_.fonts.at(static_cast<std::size_t>(field)).HorizontalAlignment;
    }

    /// False after an error, which was shown and left everything as it was.
    bool Ok();
    /// The status line shows the document's own state again.
    void Cancel();

private:
    void ReadDocument() {
        read_ = main_.document.setup;
        draft_ = SetupDraft(read_);
    }

    MainModule& main_;
    DocumentSetup read_; ///< the document's, as the draft began
    DocumentSetup draft_;
};

} // namespace velmora
