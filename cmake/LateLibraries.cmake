# A library that is loaded when it is first needed: a target knows its name alone, the one that programs are linked to.

if(WIN32) # where all libraries are linked in
    function(velmora_late_library target definition file)
        target_link_libraries(${target} PRIVATE ${file})
        target_compile_definitions(${target} PRIVATE ${definition}="${file}")
    endfunction()
    return()
endif()

find_program(CMAKE_OBJDUMP objdump REQUIRED)
find_program(DPKG_QUERY dpkg-query)

# DEFINITION becomes the name as a text. The Debian package that has the library is noted: no tool finds it in the program.
function(velmora_late_library target definition file)
    execute_process(COMMAND ${CMAKE_OBJDUMP} -p "${file}" OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
    if(NOT headers MATCHES "SONAME +([^ \n]+)")
        message(FATAL_ERROR "${file} does not tell its name")
    endif()
    set(name ${CMAKE_MATCH_1})
    target_compile_definitions(${target} PRIVATE ${definition}="${name}")
    cmake_path(GET file PARENT_PATH folder)
    if(DPKG_QUERY)
        execute_process(COMMAND ${DPKG_QUERY} -S "${folder}/${name}" OUTPUT_VARIABLE owner ERROR_QUIET)
    endif()
    if(owner MATCHES "^([^:, ]+)")
        set_property(GLOBAL APPEND PROPERTY VELMORA_LATE_PACKAGES ${CMAKE_MATCH_1})
    endif()
endfunction()
