// The forms behind an import's questions.
#pragma once

#include "workspace/ImportDialogs.h"
#include "workspace/mdlMain.h"

class QWidget;

namespace velmora {

class ImportForms : public ImportDialogs {
public:
    ImportForms(MainModule& main, QWidget* window) : main_(main), window_(window) {}
    std::string SelectSheet(const std::vector<std::string>& names) override;
    std::optional<ImportChoice> ChooseImport(const ImportRequest& request, const ImportChoice& choice) override;

private:
    MainModule& main_;
    QWidget* window_;
};

} // namespace velmora
