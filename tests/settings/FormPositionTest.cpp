#include "settings/FormPosition.h"
#include "tests/support/TestProgram.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(FormPositionTest, AWindowReturnsToItsPlaceOrToTheMiddle) {
    TestProgram program([](const std::string& text) { ADD_FAILURE() << text; });
    const FormPosition window = {0, 0, 401, 300};
    const FormPosition middle = {311, 234, 401, 300}; // of a screen of 1024 x 768
    const std::tuple<const char*, FormPosition> cases[] = {{"", middle},
                                                           {"120", middle},
                                                           {"10,20,30", middle},
                                                           {"a,b,c,d", middle},
                                                           {"10,20,0,40", middle},
                                                           {"1025,20,30,40", middle},
                                                           {"10,769,30,40", middle},
                                                           {"99999999999,1,2,3", middle},
                                                           {"1024,768,30,40", {1024, 768, 30, 40}},
                                                           {" -5, -6 ,500,400", {-5, -6, 500, 400}},
                                                           {"1,2,3,4,5", {1, 2, 3, 4}}};
    for (const auto& [stored, place] : cases) {
        program.Store("Form Position", "frmTest", stored);
        EXPECT_EQ(RestoreFormPosition(program.settings, "frmTest", window, 1024, 768), place) << stored;
    }
    EXPECT_EQ(RestoreFormPosition(program.settings, "frmTest", {0, 0, 1124, 868}, 1024, 768).left, 1);
    program.Store("Form Position", "frmTest", "");
    EXPECT_EQ(RestoreFormPosition(program.settings, "frmTest", {0, 0, 1125, 868}, 1024, 768).left, -50);
    SaveFormPosition(program.settings, "frmTest", {-1, 2, 300, 400});
    EXPECT_EQ(program.Stored("Form Position", "frmTest"), "-1,2,300,400");
}

} // namespace
} // namespace velmora
