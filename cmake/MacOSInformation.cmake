# The information property list of the macOS bundle.
#
#   tessel_write_information(<file> VERSION <version> MINIMUM_SYSTEM <version> LANGUAGES <languages...>
#                            [UPDATE_FEED <https address> UPDATE_KEY <public Ed25519 key in base64>])
#
# Without a feed there is no key of the updater's in it.
function(tessel_write_information file)
    cmake_parse_arguments(information "" "VERSION;MINIMUM_SYSTEM;UPDATE_FEED;UPDATE_KEY" "LANGUAGES" ${ARGN})
    set(information_localizations "")
    foreach(language IN LISTS information_LANGUAGES)
        string(APPEND information_localizations "\t\t<string>${language}</string>\n")
    endforeach()

    set(information_updates "")
    if(information_UPDATE_FEED OR information_UPDATE_KEY)
        # The system refuses to load anything else, and the updater anything unsigned.
        if(NOT information_UPDATE_FEED MATCHES "^https://[^/]")
            message(FATAL_ERROR "The feed of updates has to have an https address: '${information_UPDATE_FEED}'.")
        endif()
        if(NOT information_UPDATE_KEY MATCHES "^[A-Za-z0-9+/]+=$")
            message(FATAL_ERROR "The key of updates has to be 32 bytes in base64: '${information_UPDATE_KEY}'.")
        endif()
        string(LENGTH "${information_UPDATE_KEY}" length)
        if(NOT length EQUAL 44)
            message(FATAL_ERROR "The key of updates has to be 32 bytes in base64: '${information_UPDATE_KEY}'.")
        endif()
        string(REPLACE "&" "&amp;" feed "${information_UPDATE_FEED}")
        string(REPLACE "<" "&lt;" feed "${feed}")
        string(APPEND information_updates "\t<key>SUFeedURL</key>\n\t<string>${feed}</string>\n"
            "\t<key>SUPublicEDKey</key>\n\t<string>${information_UPDATE_KEY}</string>\n")
    endif()
    configure_file(${PROJECT_SOURCE_DIR}/Resources/MacOS/Info.plist.in ${file} @ONLY)
endfunction()
