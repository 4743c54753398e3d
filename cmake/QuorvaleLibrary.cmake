# The libraries that are installed: each is made of the object files of some folders of src/, which
# are compiled once for the folders' own static libraries (these are what the tests link, since they look
# at what is hidden from hosts).
include(CMakePackageConfigHelpers)
include(GenerateExportHeader)
include(GNUInstallDirs)

set(QUORVALE_STATIC OFF)
if(NOT QUORVALE_SHARED)
    set(QUORVALE_STATIC ON)
    set(PC_SVG Qt6Svg)
    set(PC_CORE_DEFINE " -DQUORVALE_CORE_STATIC_DEFINE")
    set(PC_HEADLESS_DEFINE " -DQUORVALE_HEADLESS_STATIC_DEFINE")
    set(PC_WIDGET_DEFINE " -DQUORVALE_WIDGET_STATIC_DEFINE")
    if(QUORVALE_WITH_PUGIXML)
        set(PC_PUGIXML pugixml)
    endif()
endif()

set(QUORVALE_HEADER_DIR ${CMAKE_INSTALL_INCLUDEDIR}/quorvalebox)
set(QUORVALE_CONFIG_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/QuorvaleBox)

# quorvale_library(<Name> EXPORT folder FOLDERS folder ... [HELPERS folder ...] [USES target ...]
# [PRIVATE_USES target ...] HEADERS header ...): the library QuorvaleBox::<Name>.
# EXPORT is the folder that its export.h is included from. HELPERS are folders of another library whose
# functions are not exported there: a shared library takes what it needs of them into itself. HEADERS
# are what hosts include; what these include is installed with them.
function(quorvale_library name)
    cmake_parse_arguments(LIBRARY "" "EXPORT" "FOLDERS;HELPERS;USES;PRIVATE_USES;HEADERS" ${ARGN})
    string(TOLOWER ${name} lower)
    string(TOUPPER ${name} upper)
    set(target quorvalebox-${lower})
    if(QUORVALE_SHARED)
        add_library(${target} SHARED)
        foreach(folder IN LISTS LIBRARY_HELPERS)
            target_link_libraries(${target} PRIVATE $<BUILD_INTERFACE:quorvale_${folder}>)
        endforeach()
        # What comes out of an archive stays inside.
        target_link_options(${target} PRIVATE LINKER:--exclude-libs,ALL)
    else()
        add_library(${target} STATIC)
    endif()
    add_library(QuorvaleBox::${name} ALIAS ${target})
    foreach(folder IN LISTS LIBRARY_FOLDERS)
        target_sources(${target} PRIVATE $<TARGET_OBJECTS:quorvale_${folder}>)
    endforeach()
    set_target_properties(${target} PROPERTIES
        EXPORT_NAME ${name}
        LINKER_LANGUAGE CXX
        # The others find the core beside them, wherever the tree was put.
        INSTALL_RPATH $ORIGIN
        SOVERSION ${QUORVALE_SOVERSION})
    target_compile_features(${target} INTERFACE cxx_std_20)
    target_include_directories(${target} INTERFACE
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/src>
        $<BUILD_INTERFACE:${QUORVALE_EXPORT_HEADERS}>
        $<INSTALL_INTERFACE:${QUORVALE_HEADER_DIR}>
        # <quorvalebox/...>, for projects with folders of the same names as ours.
        $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)
    # Before the helpers: what the other library exports is never taken in again.
    target_link_libraries(${target} PUBLIC ${LIBRARY_USES} PRIVATE ${LIBRARY_PRIVATE_USES})
    generate_export_header(${target}
        BASE_NAME QUORVALE_${upper}
        EXPORT_FILE_NAME ${QUORVALE_EXPORT_HEADERS}/${LIBRARY_EXPORT}/export.h
        INCLUDE_GUARD_NAME QUORVALE_${upper}_EXPORT_H)
    if(NOT QUORVALE_SHARED)
        target_compile_definitions(${target} INTERFACE QUORVALE_${upper}_STATIC_DEFINE)
    endif()
    if(QUORVALE_INSTALL)
        quorvale_install_library(${name} ${target} "${LIBRARY_HEADERS}")
    endif()
endfunction()

# Library, headers and the files by which CMake and pkg-config find them.
function(quorvale_install_library name target headers)
    install(TARGETS ${target} EXPORT QuorvaleBox${name}
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT libraries
                NAMELINK_COMPONENT development
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT development)
    install(EXPORT QuorvaleBox${name}
        FILE QuorvaleBox${name}.cmake
        NAMESPACE QuorvaleBox::
        DESTINATION ${QUORVALE_CONFIG_DIR}
        COMPONENT development)
    install(CODE "
        set(QUORVALE_PUBLIC_HEADERS \"${headers}\")
        set(QUORVALE_SOURCE \"${PROJECT_SOURCE_DIR}/src\")
        set(QUORVALE_GENERATED \"${QUORVALE_EXPORT_HEADERS}\")
        set(QUORVALE_HEADER_DIR \"${QUORVALE_HEADER_DIR}\")
        include(\"${PROJECT_SOURCE_DIR}/cmake/InstallHeaders.cmake\")"
        COMPONENT development)
    string(TOLOWER ${name} lower)
    foreach(place LIBDIR INCLUDEDIR)
        # Relative to where the .pc file lies, so that an installed tree can be moved.
        cmake_path(IS_ABSOLUTE CMAKE_INSTALL_${place} absolute)
        if(absolute)
            set(PC_${place} ${CMAKE_INSTALL_${place}})
        else()
            set(PC_${place} "\${prefix}/${CMAKE_INSTALL_${place}}")
        endif()
    endforeach()
    file(RELATIVE_PATH PC_UP /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
    string(REGEX REPLACE "/$" "" PC_UP "${PC_UP}")
    configure_file(${PROJECT_SOURCE_DIR}/cmake/quorvalebox-${lower}.pc.in
                   ${PROJECT_BINARY_DIR}/quorvalebox-${lower}.pc @ONLY)
    install(FILES ${PROJECT_BINARY_DIR}/quorvalebox-${lower}.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
        COMPONENT development)
endfunction()

# What find_package(QuorvaleBox) reads first.
function(quorvale_install_config)
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/QuorvaleBoxConfig.cmake.in
        ${PROJECT_BINARY_DIR}/QuorvaleBoxConfig.cmake
        INSTALL_DESTINATION ${QUORVALE_CONFIG_DIR}
        NO_SET_AND_CHECK_MACRO)
    # Until 1.0 every minor version may change what hosts compile against.
    write_basic_package_version_file(${PROJECT_BINARY_DIR}/QuorvaleBoxConfigVersion.cmake
        VERSION ${PROJECT_VERSION}
        COMPATIBILITY SameMinorVersion)
    install(FILES ${PROJECT_BINARY_DIR}/QuorvaleBoxConfig.cmake
                  ${PROJECT_BINARY_DIR}/QuorvaleBoxConfigVersion.cmake
        DESTINATION ${QUORVALE_CONFIG_DIR}
        COMPONENT development)
endfunction()
