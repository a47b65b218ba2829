# Installs the libraries with their public headers, and what find_package and pkg-config ask for. Each library
# is an export set of its own, so that a host of the core alone needs no Qt.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(korvel_package_folder ${CMAKE_INSTALL_LIBDIR}/cmake/KorvelCommonDialogs)
file(RELATIVE_PATH korvel_prefix_of_pkg_config ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})

# korvel_install(TARGET NAME PKG_CONFIG module REQUIRES module...)
function(korvel_install target name)
  cmake_parse_arguments(arg "" "PKG_CONFIG;DESCRIPTION" "REQUIRES" ${ARGN})
  install(TARGETS ${target} EXPORT KorvelCommonDialogs-${name} FILE_SET HEADERS)
  install(EXPORT KorvelCommonDialogs-${name} NAMESPACE KorvelCommonDialogs::
          DESTINATION ${korvel_package_folder})

  list(JOIN arg_REQUIRES ", " requires)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/KorvelCommonDialogs.pc.in ${PROJECT_BINARY_DIR}/${arg_PKG_CONFIG}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${arg_PKG_CONFIG}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

korvel_install(KorvelCommonDialogs core PKG_CONFIG korvel-common-dialogs DESCRIPTION "${PROJECT_DESCRIPTION}")
install(TARGETS KorvelCommonDialogsENU LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
if(KORVEL_BUILD_QT)
  korvel_install(KorvelCommonDialogsQt qt PKG_CONFIG korvel-common-dialogs-qt
    DESCRIPTION "The display of KorvelCommonDialogs on Qt 6 Widgets"
    REQUIRES "korvel-common-dialogs = ${PROJECT_VERSION}" "Qt6Widgets >= 6.4")
endif()

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/KorvelCommonDialogsConfig.cmake.in
  ${PROJECT_BINARY_DIR}/KorvelCommonDialogsConfig.cmake INSTALL_DESTINATION ${korvel_package_folder})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/KorvelCommonDialogsConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/KorvelCommonDialogsConfig.cmake
              ${PROJECT_BINARY_DIR}/KorvelCommonDialogsConfigVersion.cmake
        DESTINATION ${korvel_package_folder})
