# The package for host developers: `cmake --install BUILD --prefix FOLDER` installs it, and `cpack`
# makes a ZIP file of it.
include(CMakePackageConfigHelpers)

set(package_folder lib/cmake/VelaAgent)
install(TARGETS VelaAgent VelaAgentHeaders VelaAgentWatch EXPORT VelaAgentTargets
  RUNTIME DESTINATION bin
  ARCHIVE DESTINATION lib
  INCLUDES DESTINATION include)
install(EXPORT VelaAgentTargets NAMESPACE VelaAgent:: DESTINATION ${package_folder})
configure_package_config_file(cmake/VelaAgentConfig.cmake.in
  ${CMAKE_CURRENT_BINARY_DIR}/VelaAgentConfig.cmake
  INSTALL_DESTINATION ${package_folder})
write_basic_package_version_file(${CMAKE_CURRENT_BINARY_DIR}/VelaAgentConfigVersion.cmake
  COMPATIBILITY SameMajorVersion)
install(FILES
  ${CMAKE_CURRENT_BINARY_DIR}/VelaAgentConfig.cmake
  ${CMAKE_CURRENT_BINARY_DIR}/VelaAgentConfigVersion.cmake
  DESTINATION ${package_folder})

if(VELA_LIB)
  install(FILES ${VELA_LIB} DESTINATION lib)
endif()
if(VELA_TOOLS)
  install(TARGETS velactl velapanel RUNTIME DESTINATION bin)
endif()
if(VELA_DRIVER)
  # velapanel installs the virtual touchpad's driver from the folder beside it.
  install(DIRECTORY ${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/virtual-touchpad DESTINATION bin)
endif()
install(FILES
  include/VelaAgent.h
  include/VelaAgent.hpp
  include/VelaAgentDevices.hpp
  include/VelaAgentExit.hpp
  include/VelaAgentSettings.hpp
  include/VelaAgentWatch.hpp
  ${VELA_VERSION_HEADER}
  DESTINATION include)
# Other toolchains make their import libraries from this file.
install(FILES interface/VelaAgent.def DESTINATION lib)
# The example is not installed beside the DLL, where it would take effect.
install(FILES packaging/Vela.ini DESTINATION share/VelaAgent)
install(FILES
  packaging/README.md
  CHANGELOG.md
  docs/device-guide.md
  docs/host-guide.md
  docs/processes-and-users.md
  docs/reading-a-dump.md
  docs/troubleshooting.md
  examples/host/host.c
  examples/host/watching_host.cpp
  examples/recover/recover.c
  DESTINATION share/doc/VelaAgent)

set(CPACK_GENERATOR ZIP)
set(CPACK_PACKAGE_FILE_NAME VelaAgent-${PROJECT_VERSION}-win64)
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
