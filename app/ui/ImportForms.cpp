#include "app/ui/ImportForms.h"

#include "app/ui/frmImport.h"
#include "app/ui/frmSelectSheet.h"

namespace velmora {

std::string ImportForms::SelectSheet(const std::vector<std::string>& names) {
    frmSelectSheet form(main_, names, window_);
    return form.exec() == QDialog::Accepted ? form.SelectedSheet() : "";
}

std::optional<ImportChoice> ImportForms::ChooseImport(const ImportRequest& request, const ImportChoice& choice) {
    frmImport form(main_, request, choice, window_);
    return form.exec() == QDialog::Accepted ? std::optional(form.Choice()) : std::nullopt;
}

} // namespace velmora
