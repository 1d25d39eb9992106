# Collects the texts of SOURCES into a copy of TRANSLATION, and fails where one is not translated or no longer used.
configure_file(${TRANSLATION} ${COPY} COPYONLY)
execute_process(COMMAND ${LUPDATE} -silent -locations none ${SOURCES} -ts ${COPY} RESULT_VARIABLE status)
if(NOT status EQUAL 0)
    message(FATAL_ERROR "${LUPDATE} failed: ${status}")
endif()

file(READ ${COPY} texts)
string(REGEX MATCHALL "<message" messages "${texts}")
list(LENGTH messages count)
if(count EQUAL 0)
    message(FATAL_ERROR "No text was found in ${SOURCES}.")
endif()
# Unfinished, vanished or obsolete.
string(REGEX MATCHALL "<translation type=\"[a-z]+\"" incomplete "${texts}")
if(incomplete)
    list(LENGTH incomplete count)
    message(FATAL_ERROR "${TRANSLATION} has to be brought up to date in ${count} places (cmake --build build --target update_translations).")
endif()
