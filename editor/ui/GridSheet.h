// The editor's sheet: the paper, the tabs where the grid has them, and every text in its own face as it will be
// printed, but that of the box where a person types.
#pragma once

#include "editor/GridLayout.h"
#include "editor/TabMarks.h"
#include "report/SheetPainter.h"
#include "report/ui/PainterCanvas.h"

#include <QWidget>

#include <optional>

namespace velmora {

class GridSheet : public QWidget {
    Q_OBJECT

public:
    /// All must outlive the sheet.
    GridSheet(const TabDocument& document, const TabMarks& marks, const FontCatalogue& catalogue, QWidget* parent);

    /// Cells in twips. `fields`: those in use, each with its box on paper.
    void SetPage(std::vector<GridCell> cells, std::vector<PlacedText> fields, const FontSettings& fonts);
    /// Device-independent pixels per twip.
    void SetScale(double pixelsPerTwip);
    double PixelsPerTwip() const { return pixelsPerTwip_; }
    /// Where a person types: slot from 1 (0: nowhere), field 0 to 2.
    void SetCurrent(int slot, int field);
    /// What is looked for; an empty one: nothing.
    void SetMatches(const MatchFinder& find);

    GridBox GridTwips() const { return OutlineOf(cells_); }
    /// Pixels around the grid: ground and paper margin.
    static QSize BorderSize();
    QRect BoxRect(const GridBox& box) const;
    /// The slot, from 1, whose tab is at a place or nearest to it.
    int SlotNear(const QPoint& place) const;
    /// The font that shows a field, 0 to 2, as large as it is painted.
    QFont FontOf(int field);
    TextLoss LossOf(int slot, int field) const;
    /// The edge of a box by what its text loses.
    QColor EdgeColour(const TextLoss& loss) const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    std::int32_t TabOf(int slot) const;
    const std::string* TextOf(int slot, int field) const;
    bool IsCurrent(int slot, int field) const { return slot == slot_ && field == field_; }
    double PaperScale(const PlacedText& field) const;
    void UsePaperColours();
    void PaintPaper(QPainter& painter) const;
    void PaintTabs(QPainter& painter, const QRect& dirty) const;
    void PaintMatches(QPainter& painter, const QRect& dirty) const;
    void PaintTexts(QPainter& painter, const QRect& dirty);
    void PaintText(QPainter& painter, PainterCanvas& canvas, int slot, const PlacedText& field);
    void PaintEdges(QPainter& painter) const;
    void PaintLetters(QPainter& painter) const;

    const TabDocument& document_;
    const TabMarks& marks_;
    const FontCatalogue& catalogue_;
    std::vector<GridCell> cells_;
    std::vector<PlacedText> fields_;
    FontSettings fonts_;
    std::array<QString, kFieldsPerTab> families_; ///< as installed; empty: not looked for yet
    mutable std::optional<SheetPainter> painter_; ///< shapes; nullopt before the first page
    PainterFonts painterFonts_;
    std::vector<QRect> cut_; ///< boxes painted last whose texts lose something
    MatchFinder find_;
    double pixelsPerTwip_ = 0;
    int slot_ = 0;
    int field_ = 0;
};

} // namespace velmora
