# What the compiler is told for everything built here: the warnings, the sanitizers, the cache.

# Our own code links this privately, so that a host that embeds us keeps its own warnings.
add_library(quorvale_warnings INTERFACE)
target_compile_options(quorvale_warnings INTERFACE
    -Wall -Wextra -Wpedantic
    -Wconversion -Wsign-conversion -Wshadow
    -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
    # clang blames std::stable_sort's user for what libstdc++ 12 calls in it; g++ watches for the rest.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations>
    $<$<BOOL:${QUORVALE_WARNINGS_AS_ERRORS}>:-Werror>)

set(quorvale_sanitizers ${QUORVALE_SANITIZERS})
if(QUORVALE_FUZZ)
    if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
        message(FATAL_ERROR "QUORVALE_FUZZ needs clang: cmake --preset fuzz")
    endif()
    string(JOIN "," quorvale_sanitizers ${quorvale_sanitizers} fuzzer-no-link)
endif()
if(quorvale_sanitizers)
    add_compile_options(-fsanitize=${quorvale_sanitizers} -fno-sanitize-recover=undefined
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=${quorvale_sanitizers})
    add_compile_definitions(_GLIBCXX_ASSERTIONS)
endif()

# ccache, where it is installed. The tests use a precompiled header, which it stores only when it is
# told that definitions and times inside do not matter.
if(PROJECT_IS_TOP_LEVEL AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(QUORVALE_CCACHE ccache)
    if(QUORVALE_CCACHE)
        set(CMAKE_CXX_COMPILER_LAUNCHER
            ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${QUORVALE_CCACHE})
    endif()
endif()
