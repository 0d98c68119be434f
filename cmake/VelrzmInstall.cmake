# SPDX-License-Identifier: Apache-2.0
# What `cmake --install` puts into place: both libraries, the public headers, the CMake package, pkg-config files, the
# tool with its manual and its completion of words. Nothing of it holds the prefix, so the installed tree can be moved
# as a whole.
include(CMakePackageConfigHelpers)

set(velrzm_package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/velrzm)
install(TARGETS velrzm qvlocal EXPORT velrzmTargets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/velrzm DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
        FILES_MATCHING PATTERN "*.h")

install(EXPORT velrzmTargets NAMESPACE velrzm:: DESTINATION ${velrzm_package_dir})
configure_package_config_file(${CMAKE_CURRENT_LIST_DIR}/velrzmConfig.cmake.in ${PROJECT_BINARY_DIR}/velrzmConfig.cmake
                              INSTALL_DESTINATION ${velrzm_package_dir} NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/velrzmConfigVersion.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${PROJECT_BINARY_DIR}/velrzmConfig.cmake ${PROJECT_BINARY_DIR}/velrzmConfigVersion.cmake
        DESTINATION ${velrzm_package_dir})

# velrzm_pkg_config(NAME DESCRIPTION): NAME.pc, whose paths start from its own folder.
function(velrzm_pkg_config name description)
  set(pkg_config_dir ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig)
  file(RELATIVE_PATH prefix ${pkg_config_dir} ${CMAKE_INSTALL_PREFIX})
  file(RELATIVE_PATH libdir ${pkg_config_dir} ${CMAKE_INSTALL_FULL_LIBDIR})
  file(RELATIVE_PATH includedir ${pkg_config_dir} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
  string(REGEX REPLACE "/$" "" prefix ${prefix})
  string(REGEX REPLACE "/$" "" libdir ${libdir})
  configure_file(${PROJECT_SOURCE_DIR}/cmake/library.pc.in ${PROJECT_BINARY_DIR}/${name}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${name}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()
velrzm_pkg_config(velrzm "${PROJECT_DESCRIPTION}")
velrzm_pkg_config(qvlocal "Local server that stands behind velrzm where no other one does")

if(TARGET velrzm_cli)
  file(RELATIVE_PATH bin_to_lib ${CMAKE_INSTALL_FULL_BINDIR} ${CMAKE_INSTALL_FULL_LIBDIR})
  set(tool_rpath "$ORIGIN/${bin_to_lib}")
  if(VELRZM_QV_SDK)
    cmake_path(GET VELRZM_QV_SDK PARENT_PATH sdk_dir)
    list(APPEND tool_rpath ${sdk_dir})
  endif()
  set_target_properties(velrzm_cli PROPERTIES INSTALL_RPATH "${tool_rpath}")
  install(TARGETS velrzm_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
  install(DIRECTORY ${PROJECT_BINARY_DIR}/man/man1 DESTINATION ${CMAKE_INSTALL_MANDIR})
  install(FILES ${PROJECT_SOURCE_DIR}/tools/command_line/shells/velrzm.bash
          DESTINATION ${CMAKE_INSTALL_DATADIR}/bash-completion/completions RENAME velrzm)
  install(FILES ${PROJECT_SOURCE_DIR}/tools/command_line/shells/_velrzm DESTINATION ${CMAKE_INSTALL_DATADIR}/zsh/site-functions)
endif()
