# A library that is loaded when it is first needed: a target knows its name alone, the one that programs are linked to.
find_program(CMAKE_OBJDUMP objdump REQUIRED)

# DEFINITION becomes the name as a text.
function(velmora_late_library target definition file)
    execute_process(COMMAND ${CMAKE_OBJDUMP} -p "${file}" OUTPUT_VARIABLE headers COMMAND_ERROR_IS_FATAL ANY)
    if(NOT headers MATCHES "SONAME +([^ \n]+)")
        message(FATAL_ERROR "${file} does not tell its name")
    endif()
    target_compile_definitions(${target} PRIVATE ${definition}="${CMAKE_MATCH_1}")
endfunction()
