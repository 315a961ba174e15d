# How a target of this project is made: the floors (shared libraries), the test programs, the benchmarks.

option(VORFRAMES_SANITIZE "Address, leak and undefined-behaviour checks" OFF)

# What holds for all of our own code, and for nothing that a consumer compiles.
add_library(vor_options INTERFACE)
target_compile_features(vor_options INTERFACE cxx_std_17)
target_compile_options(vor_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    $<$<BOOL:${VORFRAMES_WERROR}>:-Werror>)
target_compile_definitions(vor_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS QT_NO_FOREACH
    BOOST_BIND_GLOBAL_PLACEHOLDERS)
if(VORFRAMES_SANITIZE)
    set(vor_sanitizers -fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    target_compile_options(vor_options INTERFACE ${vor_sanitizers})
    target_link_options(vor_options INTERFACE ${vor_sanitizers})
    # g++ takes the checks that it inserts for reads of values that may be unset.
    target_compile_options(vor_options INTERFACE $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
endif()

find_program(VOR_CCACHE ccache)
if(VOR_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(CMAKE_CXX_COMPILER_LAUNCHER "${VOR_CCACHE}")
endif()

# vor_floor(NAME VorGeo NAMESPACE VorHost EXPORT VorHostTargets [INCLUDE dir] SOURCES ... LINK ...)
#
# A shared library with its own include root (the folder include/ beside its sources, or INCLUDE), hidden
# visibility and the alias NAMESPACE::NAME. LINK names floors below it and public dependencies. EXPORT names the
# export set that its installed target goes to. Installed floors find each other in their own folder.
function(vor_floor)
    cmake_parse_arguments(arg "" "NAME;NAMESPACE;INCLUDE;EXPORT" "SOURCES;LINK" ${ARGN})
    if(NOT arg_INCLUDE)
        set(arg_INCLUDE "${CMAKE_CURRENT_SOURCE_DIR}/include")
    endif()
    add_library(${arg_NAME} SHARED ${arg_SOURCES})
    add_library(${arg_NAMESPACE}::${arg_NAME} ALIAS ${arg_NAME})
    string(TOUPPER ${arg_NAME} upper)
    set_target_properties(${arg_NAME} PROPERTIES
        CXX_VISIBILITY_PRESET hidden
        VISIBILITY_INLINES_HIDDEN ON
        DEFINE_SYMBOL ${upper}_BUILD
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        EXPORT_NAME ${arg_NAME}
        VOR_INCLUDE_ROOT "${arg_INCLUDE}"
        INSTALL_RPATH "$ORIGIN"
        LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
    target_include_directories(${arg_NAME} PUBLIC
        "$<BUILD_INTERFACE:${arg_INCLUDE}>"
        "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
    target_compile_features(${arg_NAME} PUBLIC cxx_std_17)
    if(NOT VORFRAMES_SANITIZE)  # the sanitizers' own symbols may come from the program
        target_link_options(${arg_NAME} PRIVATE -Wl,--no-undefined)
    endif()
    target_link_libraries(${arg_NAME} PUBLIC ${arg_LINK} PRIVATE $<BUILD_INTERFACE:vor_options>)
    install(TARGETS ${arg_NAME} EXPORT ${arg_EXPORT}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
    install(DIRECTORY "${arg_INCLUDE}/" DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")
endfunction()

# vor_test(NAME json_values_tests SOURCES ... LINK ...)
#
# A GoogleTest program (main and RapidCheck included) whose test cases ctest lists one by one.
function(vor_test)
    cmake_parse_arguments(arg "" "NAME" "SOURCES;LINK" ${ARGN})
    add_executable(${arg_NAME} ${arg_SOURCES})
    target_link_libraries(${arg_NAME} PRIVATE ${arg_LINK} vor_test_support vor_options)
    gtest_discover_tests(${arg_NAME} DISCOVERY_TIMEOUT 60 PROPERTIES TIMEOUT 600)
endfunction()

# vor_benchmark(NAME names_benchmark SOURCES ... LINK ...)
function(vor_benchmark)
    cmake_parse_arguments(arg "" "NAME" "SOURCES;LINK" ${ARGN})
    add_executable(${arg_NAME} ${arg_SOURCES})
    target_link_libraries(${arg_NAME} PRIVATE ${arg_LINK} benchmark::benchmark_main benchmark::benchmark vor_options)
endfunction()

# vor_fuzzer(NAME parse_fuzzer SOURCES ... LINK ...)
function(vor_fuzzer)
    cmake_parse_arguments(arg "" "NAME" "SOURCES;LINK" ${ARGN})
    add_executable(${arg_NAME} ${arg_SOURCES})
    target_link_libraries(${arg_NAME} PRIVATE ${arg_LINK} vor_options)
    target_compile_options(${arg_NAME} PRIVATE -fsanitize=fuzzer)
    target_link_options(${arg_NAME} PRIVATE -fsanitize=fuzzer)
endfunction()
