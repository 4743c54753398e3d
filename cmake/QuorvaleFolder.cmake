# quorvale_folder(<name> [SOURCES ...] [USES folder ...]): the library of one folder of src/.
# USES names the folders below it that it may include; nothing else is on its link line.
set(QUORVALE_EXPORT_HEADERS ${PROJECT_BINARY_DIR}/exports)

function(quorvale_folder name)
    cmake_parse_arguments(FOLDER "" "" "SOURCES;USES" ${ARGN})
    set(target quorvale_${name})
    if(FOLDER_SOURCES)
        add_library(${target} STATIC ${FOLDER_SOURCES})
        set(visibility PUBLIC)
    else()
        add_library(${target} INTERFACE)
        set(visibility INTERFACE)
    endif()
    target_include_directories(${target} ${visibility}
        ${PROJECT_SOURCE_DIR}/src ${QUORVALE_EXPORT_HEADERS})
    target_compile_features(${target} ${visibility} cxx_std_20)
    if(FOLDER_SOURCES)
        target_link_libraries(${target} PRIVATE quorvale_warnings)
        # Hosts see of it what is marked for export (base/export.h), in shared libraries.
        set_target_properties(${target} PROPERTIES
            POSITION_INDEPENDENT_CODE ON
            CXX_VISIBILITY_PRESET hidden
            VISIBILITY_INLINES_HIDDEN ON
            CXX_EXTENSIONS OFF)
    endif()
    foreach(used IN LISTS FOLDER_USES)
        if(NOT TARGET quorvale_${used})
            message(FATAL_ERROR "${name} uses ${used}, which does not stand below it")
        endif()
        target_link_libraries(${target} ${visibility} quorvale_${used})
    endforeach()
endfunction()
