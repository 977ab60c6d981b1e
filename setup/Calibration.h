// The margin calibration dialog frmFix3: two boxes for the active margins, and four sample tabs that follow them.
#pragma once

#include "setup/CalibrationSheet.h"
#include "workspace/Margins.h"
#include "workspace/mdlMain.h"

#include <array>
#include <optional>
#include <string>

namespace velmora {

/// Left and top corner of a sample tab in the drawing, in twips.
struct SamplePosition {
    double left = 0;
    double top = 0;
};

enum class MarginArrow { Left, Right, Up, Down };
enum class MarginBox { Left, Top };

/// A decimal comma is accepted and stored as a point; a text that is no number is stored as it was typed.
class Calibration {
public:
    /// Reads the active margins and the sample positions.
    explicit Calibration(MainModule& main);

    /// The samples of margins 0.
    static const std::array<SamplePosition, 4> kUnshifted;

    const std::string& LeftText() const { return left_; }
    const std::string& TopText() const { return top_; }
    /// famPreview1 to famPreview4 at indexes 0 to 3: two rows of two.
    const std::array<SamplePosition, 4>& Samples() const { return samples_; }

    /// One millimetre more or less in the arrow's direction, without bounds: a printer that starts too far right needs
    /// a negative shift. A text that is no number counts as 0.
    void Arrow(MarginArrow arrow);
    /// Each change of a box. The drawing follows a number below 252.
    void Typed(MarginBox box, const std::string& text);

    /// True while both boxes hold numbers.
    bool AreNumbers() const;
    /// The stationery without margins, to be drawn.
    DrawnSheet Drawing() const;
    /// "The print moves 1.5 mm to the right and 2 mm up.", and how many tabs that takes off the paper.
    std::string MoveText() const;
    /// The layout's defaults as they would be loaded.
    std::string DefaultsText() const;
    /// For which printer and layout OK remembers the margins.
    std::string OwnerText() const;
    MarginTexts Margins() const;

    /// Stores margins and sample positions, in one undo step, remembers the margins for the printer, and offers to keep
    /// them as the defaults of a layout that has none. The dialog closes.
    void Ok();
    /// What came of it, in words; a failure is shown.
    std::string SaveDefaults();
    /// Into the boxes; nothing active changes before Ok. A failure is shown and leaves the boxes as they were.
    void LoadDefaults();

private:
    std::string LayoutName() const;

    MainModule& main_;
    std::string left_;
    std::string top_;
    std::array<SamplePosition, 4> samples_;
};

} // namespace velmora
