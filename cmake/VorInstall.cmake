# What cmake --install puts beside the libraries and headers: the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)
set(vor_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/VorFrames")

# One export set a step upwards, so that each file finds below it what it refers to.
install(EXPORT VorJsonTargets NAMESPACE VorFrames:: DESTINATION ${vor_package_dir})
install(EXPORT VorHostTargets NAMESPACE VorHost:: DESTINATION ${vor_package_dir})
install(EXPORT VorFramesTargets NAMESPACE VorFrames:: DESTINATION ${vor_package_dir})
set(VOR_HAS_DOCUMENT OFF)
if(TARGET VorDocument)
    set(VOR_HAS_DOCUMENT ON)
    install(EXPORT VorDocumentTargets NAMESPACE VorHost:: DESTINATION ${vor_package_dir})
endif()

configure_package_config_file(cmake/VorFramesConfig.cmake.in "${PROJECT_BINARY_DIR}/VorFramesConfig.cmake"
    INSTALL_DESTINATION ${vor_package_dir})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VorFramesConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/VorFramesConfig.cmake"
    "${PROJECT_BINARY_DIR}/VorFramesConfigVersion.cmake"
    DESTINATION ${vor_package_dir})

configure_file(cmake/VorFrames.pc.in "${PROJECT_BINARY_DIR}/VorFrames.pc" @ONLY)
install(FILES "${PROJECT_BINARY_DIR}/VorFrames.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
