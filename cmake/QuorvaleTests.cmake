# quorvale_google_tests(<name> FILES file ... USES target ...): one executable of Google tests,
# each test an entry of ctest.
function(quorvale_google_tests name)
    cmake_parse_arguments(TESTS "" "" "FILES;USES" ${ARGN})
    add_executable(${name} ${TESTS_FILES})
    target_link_libraries(${name} PRIVATE
        quorvale_test_main quorvale_warnings ${TESTS_USES})
    target_precompile_headers(${name} REUSE_FROM quorvale_test_main)
    gtest_discover_tests(${name}
        TEST_PREFIX ${name}.
        DISCOVERY_TIMEOUT 60
        PROPERTIES TIMEOUT 120)
endfunction()

# quorvale_unit_tests(<folder>): the tests of tests/unit/<folder>, linked with that folder alone.
function(quorvale_unit_tests folder)
    file(GLOB files CONFIGURE_DEPENDS
        ${PROJECT_SOURCE_DIR}/tests/unit/${folder}/*_test.cpp)
    if(NOT QUORVALE_WITH_PUGIXML)
        list(FILTER files EXCLUDE REGEX "/pugi_xml_test\\.cpp$")
    endif()
    quorvale_google_tests(${folder}_tests FILES ${files} USES quorvale_${folder})
endfunction()

# quorvale_private_test(<name> COMMAND command ... [ENVIRONMENT var=value ...] [LABELS ...]
# [TIMEOUT seconds]): a test that is a program, run in a fresh home and current directory.
function(quorvale_private_test name)
    cmake_parse_arguments(TEST "" "TIMEOUT" "COMMAND;ENVIRONMENT;LABELS" ${ARGN})
    if(NOT TEST_TIMEOUT)
        set(TEST_TIMEOUT 300)
    endif()
    add_test(NAME ${name}
        COMMAND ${PROJECT_SOURCE_DIR}/tests/support/in_private_place ${QUORVALE_TEST_PLACES}
                ${TEST_COMMAND})
    set_tests_properties(${name} PROPERTIES
        ENVIRONMENT "${TEST_ENVIRONMENT}"
        LABELS "${TEST_LABELS}"
        TIMEOUT ${TEST_TIMEOUT})
endfunction()

# quorvale_qt_test(<file>): a Qt Test program, run without a display.
function(quorvale_qt_test file)
    get_filename_component(stem ${file} NAME_WE)
    set(name qt_${stem})
    add_executable(${name} ${file})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_compile_features(${name} PRIVATE cxx_std_20)
    target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests)
    target_link_libraries(${name} PRIVATE quorvale_warnings quorvale_viewer Qt6::Test)
    quorvale_private_test(${name}
        COMMAND $<TARGET_FILE:${name}>
        ENVIRONMENT QT_QPA_PLATFORM=offscreen
        LABELS qt)
endfunction()
