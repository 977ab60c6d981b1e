// The grid of boxes as numbers. Where keys lead: grid_forms_test.cpp.
#include "editor/GridLayout.h"
#include "editor/GridZoom.h"
#include "tests/support/ProgramTest.h"
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
