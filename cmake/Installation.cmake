# What `cmake --install build` puts where: the program, what desktops know it by, and how the session bus starts it.
include(GNUInstallDirs)

set(resources ${PROJECT_SOURCE_DIR}/Resources)
set(application_id org.tesselclipboard.TesselClipboard)

install(TARGETS tessel-clipboard RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
install(FILES ${resources}/${application_id}.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${resources}/${application_id}.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES ${resources}/Icons/${application_id}.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
# Some menu bars paint the item's symbol in the colour of their texts, when they find it under this kind of name.
install(FILES ${resources}/document.on.clipboard.fill.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/symbolic/apps RENAME ${application_id}-symbolic.svg)
# The bus wants an absolute path, and the prefix may be chosen as late as at the installation.
install(CODE "
    set(service_file
        \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_DATADIR}/dbus-1/services/${application_id}.service\")
    message(STATUS \"Installing: \$ENV{DESTDIR}\${service_file}\")
    file(WRITE \"\$ENV{DESTDIR}\${service_file}\"
        \"[D-BUS Service]\nName=${application_id}\nExec=\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/tessel-clipboard\n\")
    file(CHMOD \"\$ENV{DESTDIR}\${service_file}\" PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
    list(APPEND CMAKE_INSTALL_MANIFEST_FILES \"\${service_file}\")")
