# x86, 32 bits: this machine's processor runs what was built, with the loader and the libraries of the
# cross compiler.
set(CMAKE_SYSTEM_PROCESSOR i686)
set(oru_triplet i686-linux-gnu)
set(ORU_RUNS_HERE ON)
set(CMAKE_EXE_LINKER_FLAGS_INIT "-Wl,--dynamic-linker=/usr/${oru_triplet}/lib/ld-linux.so.2 \
-Wl,--disable-new-dtags,-rpath=/usr/${oru_triplet}/lib")
# Headers alone, which are of no processor.
set(nlohmann_json_DIR /usr/share/cmake/nlohmann_json CACHE PATH "")
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
