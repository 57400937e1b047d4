# What ships beside the program: the texts, the user guide and the demo session. In a build tree it lies beside
# the program itself, so that the program runs from there; an installation has it in share/pulselark.
file(GLOB PULSELARK_CONFIG_FILES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/config/*)
set(shipped "")
foreach(file IN LISTS PULSELARK_CONFIG_FILES)
  get_filename_component(name ${file} NAME)
  add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/config/${name}
    COMMAND ${CMAKE_COMMAND} -E copy ${file} ${CMAKE_BINARY_DIR}/config/${name}
    DEPENDS ${file})
  list(APPEND shipped ${CMAKE_BINARY_DIR}/config/${name})
endforeach()

file(GLOB PULSELARK_GUIDE_FILES CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/docs/guide/*)
foreach(file IN LISTS PULSELARK_GUIDE_FILES)
  get_filename_component(name ${file} NAME)
  add_custom_command(
    OUTPUT ${CMAKE_BINARY_DIR}/guide/${name}
    COMMAND ${CMAKE_COMMAND} -E copy ${file} ${CMAKE_BINARY_DIR}/guide/${name}
    DEPENDS ${file})
  list(APPEND shipped ${CMAKE_BINARY_DIR}/guide/${name})
endforeach()

add_custom_command(
  OUTPUT ${CMAKE_BINARY_DIR}/Sessions/demo.hti
  COMMAND ${CMAKE_COMMAND} -E make_directory ${CMAKE_BINARY_DIR}/Sessions ${CMAKE_BINARY_DIR}/Music
  COMMAND make_demo_session ${CMAKE_BINARY_DIR}/Sessions/demo.hti
  DEPENDS make_demo_session)
list(APPEND shipped ${CMAKE_BINARY_DIR}/Sessions/demo.hti)
add_custom_target(shipped ALL DEPENDS ${shipped})

install(FILES ${PULSELARK_CONFIG_FILES} DESTINATION ${CMAKE_INSTALL_DATADIR}/pulselark/config)
install(FILES ${PULSELARK_GUIDE_FILES} DESTINATION ${CMAKE_INSTALL_DATADIR}/pulselark/guide)
install(FILES ${CMAKE_BINARY_DIR}/Sessions/demo.hti DESTINATION ${CMAKE_INSTALL_DATADIR}/pulselark/Sessions)
