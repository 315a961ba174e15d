# What cmake --install puts beside the libraries and headers: the CMake package and the pkg-config file.

include(CMakePackageConfigHelpers)
set(vor_package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/VorFrames")

# One export set a step upwards, so that each file finds below it what it refers to.
install(EXPORT VorJsonTargets NAMESPACE VorFrames:: DESTINATION ${vor_package_dir})
install(EXPORT VorHostTargets NAMESPACE VorHost:: DESTINATION ${vor_package_dir})
install(EXPORT VorFramesTargets NAMESPACE VorFrames:: DESTINATION ${vor_package_dir})
install(EXPORT VorDocumentTargets NAMESPACE VorHost:: DESTINATION ${vor_package_dir})
install(EXPORT VorConformanceTargets NAMESPACE VorHost:: DESTINATION ${vor_package_dir})

configure_package_config_file(cmake/VorFramesConfig.cmake.in "${PROJECT_BINARY_DIR}/VorFramesConfig.cmake"
    INSTALL_DESTINATION ${vor_package_dir})
write_basic_package_version_file("${PROJECT_BINARY_DIR}/VorFramesConfigVersion.cmake"
    COMPATIBILITY SameMinorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/VorFramesConfig.cmake"
    "${PROJECT_BINARY_DIR}/VorFramesConfigVersion.cmake"
    DESTINATION ${vor_package_dir})

# The .pc files find their tree from where they lie, so an installed tree may be moved.
set(vor_pkgconfig_dir "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
file(RELATIVE_PATH vor_prefix_from_pkgconfig "/prefix/${vor_pkgconfig_dir}" "/prefix")
string(REGEX REPLACE "/$" "" vor_prefix_from_pkgconfig "${vor_prefix_from_pkgconfig}")
foreach(name IN ITEMS VorFrames VorDocument)
    configure_file(cmake/${name}.pc.in "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION ${vor_pkgconfig_dir})
endforeach()
