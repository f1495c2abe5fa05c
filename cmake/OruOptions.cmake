# What is built. The two libraries need a compiler alone; each of the others is on when what it needs
# is there, and says what is missing otherwise.

option(ORU_WERROR "Warnings are errors" OFF)
option(ORU_SIMD "Search configuration texts with SSE2 where the machine has it" ON)
option(ORU_SANITIZE "Address and undefined-behaviour sanitizers" OFF)
option(ORU_COVERAGE "Count which lines and branches of the two libraries run" OFF)
option(ORU_PRECOMPILE "Precompile what most tests include; compiler caches gain nothing by it" OFF)
if(NOT CMAKE_CXX_COMPILER_ID STREQUAL GNU)
    set(ORU_PRECOMPILE OFF) # others are stricter about options that differ between tests
endif()
option(ORU_FUZZ "Fuzz targets for libFuzzer, with sanitizers; needs clang" OFF)

# oru_part(NAME MESSAGE [CONDITION...]): an option NAME whose default is the condition.
function(oru_part name needs found)
    option(${name} "${needs}" ${found})
    if(NOT found AND NOT ${name})
        message(STATUS "${name} is off: ${needs} not found")
    endif()
endfunction()

# The loader finds by itself what belongs to the system. Under another prefix the files look beside
# themselves.
if(CMAKE_INSTALL_PREFIX STREQUAL /usr)
    set(CMAKE_SKIP_INSTALL_RPATH ON)
endif()

# Times and places in files have 64 bits everywhere; where that is no choice, it already is so.
if(CMAKE_SIZEOF_VOID_P EQUAL 4)
    add_compile_definitions(_FILE_OFFSET_BITS=64 _TIME_BITS=64)
endif()

# Whether this machine runs what is built; a toolchain file may say so.
if(NOT CMAKE_CROSSCOMPILING)
    set(ORU_RUNS_HERE ON)
endif()

find_package(nlohmann_json 3.11 QUIET)
find_package(GTest QUIET)
# Debian has GoogleTest for its own processor alone, and its sources for all others.
set(ORU_GTEST_SOURCES /usr/src/googletest CACHE PATH "Sources of GoogleTest for a cross build")
if(CMAKE_CROSSCOMPILING AND NOT GTest_FOUND AND EXISTS ${ORU_GTEST_SOURCES}/CMakeLists.txt)
    set(INSTALL_GTEST OFF CACHE INTERNAL "")
    add_subdirectory(${ORU_GTEST_SOURCES} ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL SYSTEM)
    foreach(library gtest gtest_main gmock) # used once: what optimizing it costs is not earned back
        target_compile_options(${library} PRIVATE -O0 -g0)
    endforeach()
    set(GTest_FOUND ON)
endif()
find_package(benchmark QUIET)
find_package(Threads QUIET)
set(tests_found OFF)
if(nlohmann_json_FOUND AND GTest_FOUND AND Threads_FOUND)
    set(tests_found ON)
endif()

oru_part(ORU_TOOLS "the tools need nlohmann-json 3.11 (nlohmann-json3-dev)" ${nlohmann_json_FOUND})
oru_part(ORU_TESTS "the tests need GoogleTest (libgtest-dev, libgmock-dev) and the tools" ${tests_found})
oru_part(ORU_BENCH "the benchmarks need Google Benchmark (libbenchmark-dev)" ${benchmark_FOUND})

# Everything of this project is compiled with these.
add_library(oruWarnings INTERFACE)
target_compile_options(oruWarnings INTERFACE -Wall -Wextra -Wpedantic
    $<$<COMPILE_LANGUAGE:CXX>:-Wconversion> $<$<BOOL:${ORU_WERROR}>:-Werror>)
# GCC 12 sees overlapping copies in every "text" + std::string at -O3 (its bug 105651).
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
    target_compile_options(oruWarnings INTERFACE -Wno-restrict)
endif()
# Formats of log lines are checked against their values by the library itself, at compile time.
if(CMAKE_CXX_COMPILER_ID STREQUAL Clang)
    target_compile_options(oruWarnings INTERFACE -Wno-format-security)
endif()
if(ORU_SANITIZE)
    # Little optimization, and line numbers as the only debug information: half the time to build.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
        -O1 -g1)
    add_link_options(-fsanitize=address,undefined)
endif()
# Not optimized, so that each line is one of its own.
set(coverage $<$<BOOL:${ORU_COVERAGE}>:--coverage> $<$<BOOL:${ORU_COVERAGE}>:-O0>)
if(ORU_COVERAGE)
    add_link_options(--coverage)
endif()
if(ORU_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize=function,vptr
        -fno-sanitize-recover=all
        -fno-omit-frame-pointer -O2 -g1)
    add_link_options(-fsanitize=address,undefined)
endif()
