# What `cmake --install` puts under the prefix: the headers and libraries that a host is built with, a CMake package that
# names them, guihost, the samples and the documents. Nothing in there knows the prefix, so it may be moved as a whole.
include(CMakePackageConfigHelpers)

set(headers ${CMAKE_INSTALL_INCLUDEDIR}/${PROJECT_NAME})
set(package ${CMAKE_INSTALL_LIBDIR}/cmake/${PROJECT_NAME})
if(APPLE)
  set(own_folder @loader_path)
else()
  set(own_folder $ORIGIN)
endif()

set_target_properties(gui PROPERTIES EXPORT_NAME module INSTALL_RPATH ${own_folder})
set(targets engine base gui)
if(GUI_BUILD_HOST)
  set_target_properties(guihost PROPERTIES INSTALL_RPATH ${own_folder}/${GUI_PROGRAMS_TO_LIBRARIES})
  list(APPEND targets analysis formats guihost)
endif()
install(
  TARGETS ${targets}
  EXPORT gui_targets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
  ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
  INCLUDES DESTINATION ${headers})

# Of base only what a host includes; the rest is its own.
install(
  DIRECTORY engine
  DESTINATION ${headers}
  FILES_MATCHING
  PATTERN *.h)
install(
  DIRECTORY base/backends base/recording
  DESTINATION ${headers}/base
  FILES_MATCHING
  PATTERN *.h)
install(FILES base/call_record.h base/clock.h base/draw_list.h base/engine.h base/utf.h DESTINATION ${headers}/base)
if(GUI_BUILD_HOST)
  install(FILES analysis/check.h analysis/finding.h analysis/printers.h analysis/rules.h
          DESTINATION ${headers}/analysis)
endif()

install(
  DIRECTORY samples
  DESTINATION ${CMAKE_INSTALL_DATADIR}/${PROJECT_NAME}
  PATTERN __pycache__ EXCLUDE)
install(FILES README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(DIRECTORY docs DESTINATION ${CMAKE_INSTALL_DOCDIR})

install(
  EXPORT gui_targets
  FILE guiTargets.cmake
  NAMESPACE gui::
  DESTINATION ${package})
configure_package_config_file(cmake/guiConfig.cmake.in ${PROJECT_BINARY_DIR}/guiConfig.cmake INSTALL_DESTINATION
                              ${package})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/guiConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/guiConfig.cmake ${PROJECT_BINARY_DIR}/guiConfigVersion.cmake DESTINATION ${package})
