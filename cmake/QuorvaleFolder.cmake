# quorvale_folder(<name> [SOURCES ...] [USES folder ...]): the library of one folder of src/.
# USES names the folders below it that it may include; nothing else is on its link line.
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
    target_include_directories(${target} ${visibility} ${PROJECT_SOURCE_DIR}/src)
    target_compile_features(${target} ${visibility} cxx_std_20)
    if(FOLDER_SOURCES)
        target_link_libraries(${target} PRIVATE quorvale_warnings)
        set_target_properties(${target} PROPERTIES
            POSITION_INDEPENDENT_CODE ON
            CXX_EXTENSIONS OFF)
    endif()
    foreach(used IN LISTS FOLDER_USES)
        target_link_libraries(${target} ${visibility} quorvale_${used})
    endforeach()
endfunction()
