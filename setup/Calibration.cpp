#include "setup/Calibration.h"

#include "base/Numbers.h"
#include "report/Twips.h"
#include "workspace/Dialogs.h"
#include "workspace/DocumentStatus.h"
#include "workspace/TakePageBack.h"
#include "workspace/Undo.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velmora {
namespace {

constexpr double kSecondColumn = 2880; // twips, like the rows
constexpr double kFirstRow = 840;
constexpr double kSecondRow = 2040;
constexpr double kEndOfDrawing = 252; // millimetres

struct SampleKeys {
    SettingKey left;
    SettingKey top;
};

constexpr std::array<SampleKeys, 4> kSamples = {{
    {{kMarginSection, "MarginLeft1", "0", IsNumeric}, {kMarginSection, "MarginTop1", "840", IsNumeric}},
    {{kMarginSection, "MarginLeft2", "2880", IsNumeric}, {kMarginSection, "MarginTop2", "840", IsNumeric}},
    {{kMarginSection, "MarginLeft3", "0", IsNumeric}, {kMarginSection, "MarginTop3", "2040", IsNumeric}},
    {{kMarginSection, "MarginLeft4", "2880", IsNumeric}, {kMarginSection, "MarginTop4", "2040", IsNumeric}},
}};

std::string ReadMargin(SettingsStore& store, const SettingKey& key) {
    const std::string text = Read(store, key);
    return text.empty() ? "0" : text;
}

double NumberOrZero(const std::string& text) {
    const std::string pointed = WithDecimalPoint(text);
    return IsNumeric(pointed) ? ToDouble(pointed) : 0;
}

/// nullopt where the drawing stays as it is: for no number, and one that leads out of it.
std::optional<double> ShownMillimetres(const std::string& text) {
    const std::string pointed = WithDecimalPoint(text);
    if (!IsNumeric(pointed))
        return std::nullopt;
    const double value = ToDouble(pointed);
    const double whole = RoundHalfEven(value);
    if (whole >= kEndOfDrawing || whole < std::numeric_limits<std::int16_t>::min())
        return std::nullopt;
    return value;
}

bool IsTypedNumber(const std::string& text) {
    return IsNumeric(WithDecimalPoint(text));
}

/// "1.5 mm to the right"; empty for 0.
std::string MoveInWords(double mm, const char* forward, const char* back) {
    return mm == 0 ? "" : NumberText(std::abs(mm)) + " mm " + (mm > 0 ? forward : back);
}

/// "; 16 of 24 tabs are beyond the paper"; empty while all are on it, in part at least.
std::string BeyondInWords(const Sheet& sheet, double leftMm, double topMm) {
    const Box paper = sheet.paper.AsRead();
    const auto beyond = std::count_if(sheet.tabs.begin(), sheet.tabs.end(), [&](const Box& tab) {
        const Box common = paper.CommonWith(tab.Moved(LayoutTwips(leftMm), LayoutTwips(topMm)));
        return common.width * common.height == 0;
    });
    return beyond == 0 ? ""
                       : "; " + std::to_string(beyond) + " of " + std::to_string(sheet.tabs.size()) +
                             " tabs are beyond the paper";
}

} // namespace

const std::array<SamplePosition, 4> Calibration::kUnshifted = {
    {{0, kFirstRow}, {kSecondColumn, kFirstRow}, {0, kSecondRow}, {kSecondColumn, kSecondRow}}};

Calibration::Calibration(MainModule& main)
    : main_(main), left_(ReadMargin(main.settings, kMarginLeft)), top_(ReadMargin(main.settings, kMarginTop)) {
    const SettingsBatch batch(main.settings);
    for (std::size_t i = 0; i < samples_.size(); ++i)
        samples_[i] = {ToDouble(ReadAccepted(main.settings, kSamples[i].left)),
                       ToDouble(ReadAccepted(main.settings, kSamples[i].top))};
}

MarginTexts Calibration::Margins() const {
    return {WithDecimalPoint(left_), WithDecimalPoint(top_)};
}

void Calibration::Arrow(MarginArrow arrow) {
    const bool sideways = arrow == MarginArrow::Left || arrow == MarginArrow::Right;
    const int step = arrow == MarginArrow::Right || arrow == MarginArrow::Down ? 1 : -1;
    Typed(sideways ? MarginBox::Left : MarginBox::Top, NumberText(NumberOrZero(sideways ? left_ : top_) + step));
}

void Calibration::Typed(MarginBox box, const std::string& text) {
    (box == MarginBox::Left ? left_ : top_) = text;
    const auto shown = ShownMillimetres(text);
    for (std::size_t i = 0; i < samples_.size() && shown; ++i) {
        if (box == MarginBox::Left)
            samples_[i].left = LayoutTwips(*shown) + kUnshifted[i].left;
        else
            samples_[i].top = LayoutTwips(*shown) + kUnshifted[i].top;
    }
}

bool Calibration::AreNumbers() const {
    return IsTypedNumber(left_) && IsTypedNumber(top_);
}

std::string Calibration::MoveText() const {
    if (!AreNumbers())
        return std::string("The ") + (IsTypedNumber(left_) ? "top" : "left") +
               " margin is no number: nothing can be printed.";
    const double left = NumberOrZero(left_), top = NumberOrZero(top_);
    const std::string across = MoveInWords(left, "to the right", "to the left");
    const std::string down = MoveInWords(top, "down", "up");
    if (across.empty() && down.empty())
        return "The print does not move.";
    return "The print moves " + across + (across.empty() || down.empty() ? "" : " and ") + down +
           BeyondInWords(Drawing().sheet, left, top) + ".";
}

DrawnSheet Calibration::Drawing() const {
    const DocumentSetup& setup = main_.document.setup;
    return LayOutDrawing(main_.settings, setup.OptType, setup.StationeryType);
}

std::string Calibration::LayoutName() const {
    const DocumentSetup& setup = main_.document.setup;
    return LayoutDisplayName(setup.LayoutName, setup.OptType);
}

std::string Calibration::DefaultsText() const {
    if (!MarginsReady(main_))
        return LayoutName() + " has no defaults yet.";
    try {
        const DocumentSetup& setup = main_.document.setup;
        const MarginTexts whole = LoadDefaultMargins(main_.settings, setup.OptType, setup.LayoutName);
        return "Defaults are whole millimetres: " + MarginsInWords(whole) + ".";
    } catch (const OverflowError&) {
        return "The stored defaults are too large.";
    }
}

std::string Calibration::OwnerText() const {
    return "OK remembers the margins, with their decimals, for " + main_.globals.PrinterName + " and " + LayoutName() +
           ".";
}

void Calibration::Ok() {
    TakePageBack(main_);
    const MarginTexts margins = Margins();
    {
        const UndoStep step(main_.history, main_.State(), "Margin Setup");
        const SettingsBatch batch(main_.settings);
        for (std::size_t i = 0; i < samples_.size(); ++i) {
            Write(main_.settings, kSamples[i].left, NumberText(samples_[i].left));
            Write(main_.settings, kSamples[i].top, NumberText(samples_[i].top));
        }
        if (margins.left != ReadMargin(main_.settings, kMarginLeft) ||
            margins.top != ReadMargin(main_.settings, kMarginTop))
            main_.document.DocChanged = true;
        Write(main_.settings, kMarginLeft, margins.left);
        Write(main_.settings, kMarginTop, margins.top);
        RememberPrinterMargins(main_.settings, main_.globals.PrinterName, main_.document.setup, margins);
    }
    if (!MarginsReady(main_) && Ask(main_.ui,
                                    "Do you want to save this margin settings as the default margin settings for " +
                                        LayoutName() + " stationery?",
                                    Buttons::YesNo) == Answer::Yes)
        SaveDefaults();
    RefreshDocumentStatus(main_);
}

std::string Calibration::SaveDefaults() {
    const DocumentSetup& setup = main_.document.setup;
    const bool saved = SaveDefaultMargins(main_.settings, setup.OptType, setup.LayoutName, Margins());
    return saved ? "Saved for " + LayoutName() + ". " + DefaultsText() : "The defaults were not saved.";
}

void Calibration::LoadDefaults() {
    Trapped(main_.ui, "Called from Sub: LoadDefaults", [&] {
        const MarginTexts margins =
            LoadDefaultMargins(main_.settings, main_.document.setup.OptType, main_.document.setup.LayoutName);
        Typed(MarginBox::Left, margins.left);
        Typed(MarginBox::Top, margins.top);
    });
}

} // namespace velmora
