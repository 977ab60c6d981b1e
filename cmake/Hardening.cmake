# What keeps a fault that a hostile file finds in an optimised build from becoming more than the end of the program.
if(WIN32) # whose programs can lie anywhere in memory by default
    add_compile_options("$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-fstack-protector-strong;-D_GLIBCXX_ASSERTIONS>")
    add_link_options("$<$<CONFIG:Release,RelWithDebInfo,MinSizeRel>:-fstack-protector-strong>") # its functions
    return()
endif()

include(CheckCXXCompilerFlag)
check_cxx_compiler_flag(-fcf-protection VELMORA_HAS_CF_PROTECTION) # not on every processor

set(optimised $<CONFIG:Release,RelWithDebInfo,MinSizeRel>)
# Some systems' compilers have a _FORTIFY_SOURCE of their own. Qt's targets ask for -fPIC, which comes behind -fPIE.
add_compile_options("$<${optimised}:-fPIE;-fstack-protector-strong;-U_FORTIFY_SOURCE;-D_FORTIFY_SOURCE=2>"
    "$<${optimised}:-D_GLIBCXX_ASSERTIONS>")
if(VELMORA_HAS_CF_PROTECTION)
    add_compile_options($<${optimised}:-fcf-protection>)
endif()
add_link_options("$<${optimised}:-pie;-Wl,-z,relro,-z,now>")
