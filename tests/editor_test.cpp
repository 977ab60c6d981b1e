// The grid of boxes as numbers, and what a box does when it is entered and typed in.
#include "editor/GridLayout.h"
#include "editor/GridMoves.h"
#include "editor/GridZoom.h"
#include "tests/support/ProgramTest.h"
#include "workspace/Pages.h"
#include "workspace/ReplaceDocument.h"

namespace velmora {
namespace {

struct EditorTest : ProgramTest {
    void MakeDocument(int type, int fields) {
        SetType(type, fields);
        NewDocument(main);
        SetFieldLimits(document.setup);
    }
};

TEST_F(EditorTest, TheFirstTabStandsWhereItAlwaysStood) {
    const std::tuple<int, int, std::size_t, GridBox> cases[] = {
        {0, 1, 0, {0, 10, 3660, 750}}, {2, 2, 1, {0, 385, 3660, 325}}, {5, 3, 2, {1370, 400, 1360, 380}}};
    for (const auto& [type, fields, field, box] : cases) {
        MakeDocument(type, fields);
        EXPECT_EQ(LayOutGrid(document)[0].boxes[field], box) << type;
    }
}

TEST_F(EditorTest, SlotsRunRowByRowAndNoTwoBoxesMeet) {
    const auto apart = [](const GridBox& a, const GridBox& b) {
        return a.left >= b.left + b.width || b.left >= a.left + a.width || a.top >= b.top + b.height;
    };
    for (int type = 0; type < 6; ++type)
        for (int fields = 1; fields <= 3; ++fields) {
            MakeDocument(type, fields);
            std::vector<GridBox> boxes;
            for (const GridCell& cell : LayOutGrid(document))
                for (const GridBox& box : cell.boxes)
                    if (box.width > 0)
                        boxes.push_back(box);
            ASSERT_EQ(boxes.size(), static_cast<std::size_t>(document.setup.TabsPerPage * fields));
            for (std::size_t i = 0; i < boxes.size(); ++i)
                for (std::size_t j = 0; j < i; ++j)
                    EXPECT_TRUE(apart(boxes[i], boxes[j])) << type << " " << fields << ": " << i << " and " << j;
        }
    MakeDocument(1, 1);
    const auto cells = LayOutGrid(document);
    EXPECT_EQ(cells[5].boxes[0].top, cells[0].boxes[0].top);
    EXPECT_EQ(cells[6].boxes[0].left, cells[0].boxes[0].left);
}

TEST_F(EditorTest, KeysLeadOverThePagesOfTheWholeDocument) {
    MakeDocument(1, 2); // 48 tabs in rows of 6
    document.CurrentTab = 2;
    AddPage(main);
    ASSERT_EQ(document.TabCount, 96);
    document.FieldB(50) = "last";
    struct Row {
        GridMove move;
        TabBox from;
        std::optional<TabBox> to;
    };
    const Row rows[] = {{GridMove::NextBox, {5, 0}, TabBox{5, 1}},
                        {GridMove::NextBox, {48, 1}, TabBox{49, 0}},
                        {GridMove::NextBox, {96, 1}, std::nullopt},
                        {GridMove::PreviousBox, {49, 0}, TabBox{48, 1}},
                        {GridMove::PreviousBox, {1, 0}, std::nullopt},
                        {GridMove::NextTab, {48, 1}, TabBox{49, 1}},
                        {GridMove::PreviousTab, {1, 1}, std::nullopt},
                        {GridMove::Up, {50, 1}, TabBox{44, 1}},
                        {GridMove::Up, {6, 0}, std::nullopt},
                        {GridMove::Down, {44, 0}, TabBox{50, 0}},
                        {GridMove::Down, {91, 0}, std::nullopt},
                        {GridMove::RowStart, {12, 1}, TabBox{7, 1}},
                        {GridMove::RowEnd, {7, 0}, TabBox{12, 0}},
                        {GridMove::FirstTab, {70, 1}, TabBox{1, 1}},
                        {GridMove::LastFilledTab, {70, 0}, TabBox{50, 0}}};
    for (const Row& row : rows)
        EXPECT_EQ(PlaceAfter(row.move, row.from, document), row.to)
            << static_cast<int>(row.move) << " from " << row.from.tab;
}

TEST_F(EditorTest, TheZoomIsRememberedAndStaysWithinItsLimits) {
    for (const GridZoom& zoom : {GridZoom{GridFit::Width}, GridZoom{GridFit::None, 125}, GridZoom{}}) {
        SaveZoom(program.settings, zoom);
        EXPECT_EQ(ReadZoom(program.settings), zoom);
    }
    for (const auto& [stored, percent] : {std::pair{"9999", 200}, {"-1", 50}, {"125", 125}}) {
        program.Store("Settings", "Editor Zoom", stored);
        EXPECT_EQ(ReadZoom(program.settings).percent, percent);
    }
    const std::tuple<double, int, int> steps[] = {{113, 1, 125},   {113, -1, 110},  {500, 1, 200}, {20, -1, 50},
                                                  {110.2, 1, 125}, {110.2, -1, 100}}; // a step is not repeated
    for (const auto& [percent, direction, beside] : steps)
        EXPECT_EQ(ZoomBeside(percent, direction).percent, beside) << percent;
    const GridSize twips = {100, 200};
    EXPECT_EQ(ZoomScale({}, {1000, 1000}, twips, 1), 5);
    EXPECT_EQ(ZoomScale({GridFit::Width}, {1000, 1000}, twips, 1), 10);
    EXPECT_EQ(ZoomScale({GridFit::None, 150}, {1000, 1000}, twips, 2), 3);
    EXPECT_EQ(ZoomScale({}, {10, 10}, twips, 1), 0.75) << "what is smaller cannot be read";
}

} // namespace
} // namespace velmora
