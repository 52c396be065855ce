# Installation, the CMake packages TaviDlg and VelbrookStore, pkg-config files and the Debian packages.
#
# Two install components: "runtime" (the libraries, the console, velbrook-store, plug-ins) and "dev"
# (headers, the unversioned library links, CMake and pkg-config files). `cpack -G DEB` makes one Debian
# package of each; configure with -DCMAKE_INSTALL_PREFIX=/usr for packages.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

set(TAVI_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake)
# Installed programs and libraries find their siblings wherever the prefix is.
file(RELATIVE_PATH TAVI_BIN_TO_LIB /${CMAKE_INSTALL_BINDIR} /${CMAKE_INSTALL_LIBDIR})
set(TAVI_PROGRAM_RPATH "$ORIGIN/${TAVI_BIN_TO_LIB}")

# The store: libVelbrookStore and <velbrook/*.h>.
install(TARGETS VelbrookStore EXPORT VelbrookStoreTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/store/include/velbrook DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
  COMPONENT dev FILES_MATCHING PATTERN "*.h")

# The dialog library: libTaviDlg and <TaviDlg.h> (in include/tavidlg, found as <TaviDlg.h>).
set_target_properties(TaviDlg PROPERTIES INSTALL_RPATH "$ORIGIN")
install(TARGETS TaviDlg EXPORT TaviDlgTargets
  LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT dev
  RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime
  INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tavidlg)
install(FILES ${PROJECT_SOURCE_DIR}/tavidlg/include/TaviDlg.h DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/tavidlg
  COMPONENT dev)

# The programs.
foreach(program velbrook-console velbrook-store)
  if(TARGET ${program})
    set_target_properties(${program} PROPERTIES INSTALL_RPATH "${TAVI_PROGRAM_RPATH}")
    install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT runtime)
  endif()
endforeach()
if(TARGET velbrook-console)
  # The console loads the library at run time by its versioned name from this folder, relative to itself.
  target_compile_definitions(velbrook-console PRIVATE
    TAVI_INSTALLED_LIBRARY="${TAVI_BIN_TO_LIB}/$<TARGET_SONAME_FILE_NAME:TaviDlg>")
endif()

# Plug-ins (loadable modules the dialogs open at run time) go to <libdir>/velbrook/plugins:
#   tavi_install_plugin(SieveFilterPlugin)
set(TAVI_PLUGIN_DIR ${CMAKE_INSTALL_LIBDIR}/velbrook/plugins)
function(tavi_install_plugin target)
  set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN/../..")
  install(TARGETS ${target} LIBRARY DESTINATION ${TAVI_PLUGIN_DIR} COMPONENT runtime)
endfunction()
foreach(plugin SieveFilterPlugin)
  if(TARGET ${plugin})
    tavi_install_plugin(${plugin})
  endif()
endforeach()

# CMake packages: find_package(VelbrookStore) gives Velbrook::Store, find_package(TaviDlg) gives
# TaviDlg::TaviDlg (which brings Velbrook::Store along).
set_target_properties(VelbrookStore PROPERTIES EXPORT_NAME Store)
install(EXPORT VelbrookStoreTargets NAMESPACE Velbrook:: DESTINATION ${TAVI_CMAKE_DIR}/VelbrookStore
  COMPONENT dev)
install(EXPORT TaviDlgTargets NAMESPACE TaviDlg:: DESTINATION ${TAVI_CMAKE_DIR}/TaviDlg COMPONENT dev)
foreach(package VelbrookStore TaviDlg)
  configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/${package}Config.cmake.in
    ${CMAKE_CURRENT_BINARY_DIR}/${package}Config.cmake INSTALL_DESTINATION ${TAVI_CMAKE_DIR}/${package})
  write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/${package}ConfigVersion.cmake
    VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${package}Config.cmake
                ${CMAKE_CURRENT_BINARY_DIR}/${package}ConfigVersion.cmake
          DESTINATION ${TAVI_CMAKE_DIR}/${package} COMPONENT dev)
endforeach()

# pkg-config: velbrook-store.pc and tavidlg.pc, relocatable (prefix from the file's own place).
file(RELATIVE_PATH TAVI_PC_TO_PREFIX /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
foreach(pc velbrook-store tavidlg)
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${pc}.pc.in ${CMAKE_CURRENT_BINARY_DIR}/${pc}.pc @ONLY)
  install(FILES ${CMAKE_CURRENT_BINARY_DIR}/${pc}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig COMPONENT dev)
endforeach()

# Debian packages.
set(CPACK_PACKAGE_NAME tavidlg)
set(CPACK_PACKAGE_VENDOR "Brennoway")
set(CPACK_PACKAGE_CONTACT "Velbrook administration developers <velbrook-dev@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Configuration dialogs and administration console of the Velbrook mail server")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_COMPONENTS_ALL runtime dev)
set(CPACK_COMPONENT_DEV_DEPENDS runtime)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION admin)
# The run-time dependencies are read off the binaries by dpkg-shlibdeps; the Qt platform plug-ins
# (which nothing links) are named by hand.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME tavidlg)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS "qt6-qpa-plugins")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "qt6-translations-l10n")
# CPack puts the package summary above each component's description.
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "The TaviDlg dialog library, the configuration store library, the administration console
velbrook-console and the store's command line velbrook-store.")
set(CPACK_DEBIAN_DEV_PACKAGE_NAME tavidlg-dev)
set(CPACK_DEBIAN_DEV_PACKAGE_SECTION libdevel)
set(CPACK_COMPONENT_DEV_DESCRIPTION "Development files: headers, CMake packages (find_package(TaviDlg), find_package(VelbrookStore)) and pkg-config files
(tavidlg, velbrook-store) for programs that host the TaviDlg dialog library.")
include(CPack)
