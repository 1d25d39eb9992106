# Warnings are errors, in every file of ours.
add_library(tessel_warnings INTERFACE)
target_compile_options(tessel_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Werror
    -Wshadow -Wconversion -Wsign-conversion -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
    -Wdouble-promotion -Wformat=2 -Wimplicit-fallthrough)
# What a later toolkit than the oldest that is built with no longer recommends is no error.
target_compile_definitions(tessel_warnings INTERFACE QT_WARN_DEPRECATED_UP_TO=0x060400)
# GCC 12 sees an overlap in `std::string` operations that is not there (GCC bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(tessel_warnings INTERFACE -Wno-restrict)
endif()
