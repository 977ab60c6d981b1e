// A document with an undo history, and all that a step restores as one text.
#pragma once

#include "tests/support/Documents.h"
#include "tests/support/ProgramTest.h"
#include "workspace/Undo.h"

namespace velmora {

struct UndoTest : ProgramTest {
    UndoHistory& history = main.history;

    void MakeDocument(int pages) {
        MakePages(main, pages, 3, 0, [](int field, int tab) { return field == 0 ? "tab " + std::to_string(tab) : ""; });
        main.globals.AskBeforeDelete = false;
        history.KeepSteps();
        history.Clear(document);
    }
    /// `operation` as one step.
    template <typename Operation> void Do(const char* name, Operation operation) {
        UndoStep step(history, main.State(), name);
        operation();
    }
    void Type(int tab, const std::string& text, int field = 0) { history.Type(document, {tab, field}, text); }
    /// Everything that a step restores, with the settings as they stand in the INI file.
    std::string State() {
        std::string text;
        for (int number :
             {int{document.NoOfPages}, int{document.setup.NoOfFields}, int{document.setup.OptType},
              int{document.setup.TabsPerPage}, int{document.setup.RowsPerPage}, int{document.setup.ColsPerPage},
              int{document.TabCount}, document.setup.Grid.Width1, document.setup.Grid.Height2,
              int{document.setup.Limits.MaxLenField1}, int{document.setup.Limits.MaxLenField2}})
            text += std::to_string(number) + "|";
        text += document.setup.StationeryType + document.setup.PageSize + document.setup.LayoutName;
        for (int field = 0; field < kFieldsPerTab; ++field) {
            const FieldFont& font = main.fonts[static_cast<std::size_t>(field)];
            text += "\n" + font.Name + std::to_string(font.Size) + std::to_string(font.HorizontalAlignment);
            for (int key = 0; key < kFontKeys; ++key)
                text += "," + program.Stored(std::string(kFontSection), std::string(FontSetting(key, field).key));
            for (int tab = 1; tab <= document.Field(field).Count(); ++tab)
                text += "\n" + document.Field(field)(tab);
        }
        for (const SettingKey* row : {&kStationeryType, &kPageSize, &kOptType, &kNoOfFields, &kNoOfPages, &kMarginLeft})
            text += "\n" + program.settings.Object.GetSettingStr(row->section, row->key, row->fallback);
        return text;
    }
    void SetUpPage(int type, int fields, int fontSize) {
        SetType(type, fields);
        SetLayoutFromType(document.setup);
        SetFieldLimits(document.setup);
        ApplyTabType(main);
        main.fonts[1].Size = static_cast<std::int16_t>(fontSize);
        main.fonts[2].Name = "A name too long for the string itself " + std::to_string(fontSize);
        SaveFontSettings(main.settings, main.fonts);
        Write(main.settings, kMarginLeft, std::to_string(fontSize) + ".5");
    }
};

} // namespace velmora
