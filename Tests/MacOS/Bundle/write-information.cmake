# cmake -DFILE=... [-DUPDATE_FEED=... -DUPDATE_KEY=...] -P write-information.cmake: as the build for macOS does it.
cmake_minimum_required(VERSION 3.25)
get_filename_component(PROJECT_SOURCE_DIR ${CMAKE_CURRENT_LIST_DIR}/../../.. ABSOLUTE)
include(${PROJECT_SOURCE_DIR}/cmake/MacOSInformation.cmake)
tessel_write_information(${FILE} VERSION 3.2.1 MINIMUM_SYSTEM 13.0 LANGUAGES en de
    UPDATE_FEED "${UPDATE_FEED}" UPDATE_KEY "${UPDATE_KEY}")
