# Headers of libraries that most sources include, read once for each kind of target instead of once for each source.
# No header of the project is among them: what changes is not precompiled.

function(velmora_headers kind libraries)
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/generated/${kind}_headers.cpp CONTENT "")
    add_library(velmora_${kind}_headers OBJECT ${CMAKE_BINARY_DIR}/generated/${kind}_headers.cpp)
    target_link_libraries(velmora_${kind}_headers PRIVATE velmora_options ${libraries})
    target_precompile_headers(velmora_${kind}_headers PRIVATE ${ARGN})
endfunction()

# kind: core, qt or test.
function(velmora_precompile kind)
    foreach(target IN LISTS ARGN)
        target_precompile_headers(${target} REUSE_FROM velmora_${kind}_headers)
    endforeach()
endfunction()

set(standard <algorithm> <array> <charconv> <chrono> <cstdint> <filesystem> <fstream> <functional> <map> <memory>
    <optional> <set> <span> <sstream> <string> <string_view> <unordered_map> <utility> <variant> <vector>)

velmora_headers(core "" ${standard})
if(VELMORA_UI)
    velmora_headers(qt Qt6::Widgets ${standard}
        <QApplication> <QCheckBox> <QComboBox> <QDialog> <QDialogButtonBox> <QFormLayout> <QGroupBox> <QKeyEvent> <QLabel>
        <QLineEdit> <QListWidget> <QMainWindow> <QPainter> <QPushButton> <QRadioButton> <QTimer> <QToolBar> <QVBoxLayout>)
endif()
if(VELMORA_TESTS)
    find_package(GTest REQUIRED)
    velmora_headers(test GTest::gtest ${standard} <gtest/gtest.h>)
endif()
