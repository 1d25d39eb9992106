# A toolchain that configures the build as it is on macOS, where there is none, with the view toolkit of this system. Its
# commands say what is compiled there and with which options, and its generated files are the real ones; it cannot link.
set(CMAKE_SYSTEM_NAME Darwin)
set(CMAKE_LIBRARY_ARCHITECTURE x86_64-linux-gnu)
set(CMAKE_PREFIX_PATH /usr/lib/x86_64-linux-gnu/cmake)
set(CMAKE_INSTALL_NAME_TOOL /usr/lib/llvm-14/bin/llvm-install-name-tool)
set(CMAKE_TRY_COMPILE_TARGET_TYPE STATIC_LIBRARY)
foreach(language IN ITEMS CXX OBJCXX)
    set(CMAKE_${language}_COMPILER /usr/bin/clang++-14)
    set(CMAKE_${language}_COMPILER_TARGET arm64-apple-macos13.0)
    set(CMAKE_${language}_COMPILER_WORKS ON)
    # CMake takes a system whose version it cannot ask for one from before there were rpaths.
    set(CMAKE_SHARED_LIBRARY_RUNTIME_${language}_FLAG "-Wl,-rpath,")
endforeach()
# What is looked for on the machine, and not there.
set(TESSEL_MACDEPLOYQT /usr/bin/false)
set(CMAKE_PROJECT_INCLUDE ${CMAKE_CURRENT_LIST_DIR}/DarwinFrameworks.cmake)
