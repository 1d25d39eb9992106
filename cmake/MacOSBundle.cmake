# `Tessel Clipboard.app`. The target `bundle` makes one that runs on other machines, in <build directory>/bundle: with the
# toolkit's frameworks and the updater's inside. Scripts/sign-bundle signs it. See Documentation/MacOS.md.
include(cmake/MacOSInformation.cmake)
find_package(Qt6 REQUIRED COMPONENTS Core)
add_subdirectory(Resources/MacOS)

set(bundle "Tessel Clipboard.app")
set(resources ${PROJECT_SOURCE_DIR}/Resources)

# English is in the sources. A language that is not named here is not offered by the system.
get_property(translations GLOBAL PROPERTY TESSEL_TRANSLATIONS)
set(languages en)
foreach(translation IN LISTS translations)
    string(REGEX REPLACE "^.*_([^_.]+)[.]ts$" "\\1" language "${translation}")
    list(APPEND languages ${language})
endforeach()

set(TESSEL_UPDATE_FEED "" CACHE STRING "Address of the feed of updates, for macOS")
set(TESSEL_UPDATE_KEY "" CACHE STRING "The public Ed25519 key that updates are signed with, in base64")
# An updater without a feed complains to the user at each start, and a feed without an updater is of no use.
if((TESSEL_SPARKLE AND NOT TESSEL_UPDATE_FEED) OR (TESSEL_UPDATE_FEED AND NOT TESSEL_SPARKLE))
    message(FATAL_ERROR "TESSEL_SPARKLE and TESSEL_UPDATE_FEED (with TESSEL_UPDATE_KEY) belong together.")
endif()
tessel_write_information(${PROJECT_BINARY_DIR}/Info.plist
    VERSION ${PROJECT_VERSION} MINIMUM_SYSTEM ${CMAKE_OSX_DEPLOYMENT_TARGET} LANGUAGES ${languages}
    UPDATE_FEED "${TESSEL_UPDATE_FEED}" UPDATE_KEY "${TESSEL_UPDATE_KEY}")

set(icon ${PROJECT_BINARY_DIR}/TesselClipboard.icns)
add_custom_command(OUTPUT ${icon}
    COMMAND tessel-icon ${resources}/Icons/org.tesselclipboard.TesselClipboard.svg ${icon}
    DEPENDS tessel-icon ${resources}/Icons/org.tesselclipboard.TesselClipboard.svg
    VERBATIM)
add_custom_target(tessel-bundle-icon DEPENDS ${icon})
add_dependencies(tessel-clipboard tessel-bundle-icon)
target_sources(tessel-clipboard PRIVATE ${icon})
# What is said of a file counts in one directory, and the program is another one's.
set_source_files_properties(${icon} TARGET_DIRECTORY tessel-clipboard PROPERTIES MACOSX_PACKAGE_LOCATION Resources)

# The toolkit's own texts, those of English being in it. Homebrew has them in another package than the rest of it.
set(toolkit_texts "")
foreach(language IN LISTS languages)
    find_file(TESSEL_TOOLKIT_TEXTS_${language} qtbase_${language}.qm NO_DEFAULT_PATH
        PATHS ${QT6_INSTALL_PREFIX} ${CMAKE_PREFIX_PATH} PATH_SUFFIXES ${QT6_INSTALL_TRANSLATIONS})
    if(TESSEL_TOOLKIT_TEXTS_${language})
        list(APPEND toolkit_texts ${TESSEL_TOOLKIT_TEXTS_${language}})
    elseif(NOT language STREQUAL "en")
        message(WARNING "The toolkit's texts in the language '${language}' are missing.")
    endif()
endforeach()

set_target_properties(tessel-clipboard PROPERTIES
    MACOSX_BUNDLE ON
    MACOSX_BUNDLE_INFO_PLIST ${PROJECT_BINARY_DIR}/Info.plist
    OUTPUT_NAME "Tessel Clipboard"
    INSTALL_RPATH "@executable_path/../Frameworks")

install(TARGETS tessel-clipboard BUNDLE DESTINATION .)
# Not where the program is built: there the toolkit's plugins and texts are where the toolkit is.
install(FILES ${resources}/MacOS/qt.conf DESTINATION "${bundle}/Contents/Resources")
install(FILES ${toolkit_texts} DESTINATION "${bundle}/Contents/Resources/translations")
if(TESSEL_SPARKLE)
    # So that the program also starts where it is built.
    get_filename_component(directory_of_updater "${TESSEL_SPARKLE}" DIRECTORY)
    set_target_properties(tessel-clipboard PROPERTIES BUILD_RPATH "${directory_of_updater}")
    install(DIRECTORY ${TESSEL_SPARKLE} DESTINATION "${bundle}/Contents/Frameworks" USE_SOURCE_PERMISSIONS)
endif()
find_program(TESSEL_MACDEPLOYQT macdeployqt REQUIRED HINTS ${QT6_INSTALL_PREFIX}/${QT6_INSTALL_BINS})
install(CODE "execute_process(
    COMMAND \"${TESSEL_MACDEPLOYQT}\" \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${bundle}\" -always-overwrite
    COMMAND_ERROR_IS_FATAL ANY)")

add_custom_target(bundle
    COMMAND ${CMAKE_COMMAND} -E rm -rf "${PROJECT_BINARY_DIR}/bundle/${bundle}"
    COMMAND ${CMAKE_COMMAND} --install ${PROJECT_BINARY_DIR} --prefix ${PROJECT_BINARY_DIR}/bundle
    DEPENDS tessel-clipboard
    VERBATIM)
