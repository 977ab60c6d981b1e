// The grid of boxes as numbers, and what a box does when it is entered and typed in.
#include "editor/GridLayout.h"
#include "tests/support/TestProgram.h"
#include "workspace/ReplaceDocument.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

struct EditorTest : testing::Test {
    TestProgram program{[](const std::string& text) { ADD_FAILURE() << text; }};
    TabDocument& document = program.main.document;

    void MakeDocument(int type, int fields) {
        document.setup.OptType = static_cast<std::int16_t>(type);
        document.setup.NoOfFields = static_cast<std::int16_t>(fields);
        NewDocument(program.main);
        SetFieldLimits(document.setup);
    }
};

TEST_F(EditorTest, TheFirstTabStandsWhereItAlwaysStood) {
    MakeDocument(0, 1);
    EXPECT_EQ(LayOutGrid(document)[0].boxes[0], (GridBox{0, 10, 3660, 750}));
    MakeDocument(2, 2);
    EXPECT_EQ(LayOutGrid(document)[0].boxes[0], (GridBox{0, 10, 3660, 325}));
    EXPECT_EQ(LayOutGrid(document)[0].boxes[1], (GridBox{0, 385, 3660, 325}));
    MakeDocument(5, 3);
    EXPECT_EQ(LayOutGrid(document)[0].boxes[1], (GridBox{0, 400, 1360, 380}));
    EXPECT_EQ(LayOutGrid(document)[0].boxes[2], (GridBox{1370, 400, 1360, 380}));
}

TEST_F(EditorTest, NoTwoBoxesOfAPageMeet) {
    for (int type = 0; type < 6; ++type) {
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
                    EXPECT_TRUE(boxes[i].left >= boxes[j].left + boxes[j].width ||
                                boxes[j].left >= boxes[i].left + boxes[i].width ||
                                boxes[i].top >= boxes[j].top + boxes[j].height)
                        << type << " " << fields << ": " << i << " and " << j;
        }
    }
}

TEST_F(EditorTest, SlotsRunRowByRow) {
    MakeDocument(1, 1);
    const auto cells = LayOutGrid(document);
    EXPECT_EQ(cells[5].boxes[0].top, cells[0].boxes[0].top);
    EXPECT_GT(cells[6].boxes[0].top, cells[5].boxes[0].top);
    EXPECT_EQ(cells[6].boxes[0].left, cells[0].boxes[0].left);
}

TEST_F(EditorTest, EnteringABoxSetsTheCurrentTab) {
    MakeDocument(0, 1);
    document.CurrentPage = 3;
    EnterBox(program.main, 5);
    EXPECT_EQ(document.CurrentTab, 53);
    document.CurrentPage = 1366;
    EnterBox(program.main, 24);
    EXPECT_EQ(document.CurrentTab, 53) << "a number beyond 16 bits changes nothing";
}

} // namespace
} // namespace velmora
