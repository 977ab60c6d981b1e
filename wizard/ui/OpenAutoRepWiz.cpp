#include "wizard/ui/OpenAutoRepWiz.h"

#include "wizard/ui/ChoicePages.h"
#include "wizard/ui/ChooserPage.h"
#include "wizard/ui/ValuePages.h"
#include "wizard/ui/frmAutoRepWiz7.h"

namespace velmora {
namespace {

std::unique_ptr<WizardForm> MakePage(frmAutoRepWiz& wizard, WizardPage page) {
    switch (page) {
    case WizardPage::Introduction: return std::make_unique<frmAutoRepWiz1>(wizard);
    case WizardPage::Count: return std::make_unique<frmAutoRepWiz2>(wizard);
    case WizardPage::Chooser: return std::make_unique<frmAutoRepWiz2a>(wizard);
    case WizardPage::Type: return std::make_unique<frmAutoRepWiz2b>(wizard);
    case WizardPage::Numbers: return std::make_unique<frmAutoRepWiz5a>(wizard);
    case WizardPage::Style: return std::make_unique<frmAutoRepWiz5b>(wizard);
    case WizardPage::Ticks: return std::make_unique<frmAutoRepWiz6a>(wizard);
    case WizardPage::Text: return std::make_unique<frmAutoRepWiz5d>(wizard);
    case WizardPage::Fonts: break;
    }
    return std::make_unique<frmAutoRepWiz7>(wizard);
}

} // namespace

void OpenAutoRepWiz(MainModule& main, const FontCatalogue& fonts, frmAutoRepWiz::Start start, QWidget* parent) {
    (new frmAutoRepWiz(main, fonts, start, MakePage, parent))->open();
}

} // namespace velmora
