# This machine's processor with musl instead of glibc. There is no C++ library for it: the two libraries
# need its headers alone, and those of the compiler serve, told that this is no glibc.
set(CMAKE_C_COMPILER musl-gcc)
set(CMAKE_CXX_COMPILER g++)
execute_process(COMMAND ${CMAKE_C_COMPILER} -print-multiarch OUTPUT_VARIABLE multiarch
    OUTPUT_STRIP_TRAILING_WHITESPACE)
execute_process(COMMAND ${CMAKE_CXX_COMPILER} -dumpversion OUTPUT_VARIABLE version
    OUTPUT_STRIP_TRAILING_WHITESPACE)
string(REPLACE -linux-gnu -linux-musl musl ${multiarch})
set(CMAKE_CXX_FLAGS_INIT "-specs=/usr/lib/${musl}/musl-gcc.specs -isystem /usr/include/c++/${version} \
-isystem /usr/include/${multiarch}/c++/${version} \"-D__GLIBC_PREREQ(major,minor)=0\"")
set(CMAKE_CXX_COMPILER_WORKS TRUE) # programs would need the C++ library; the two libraries do not
