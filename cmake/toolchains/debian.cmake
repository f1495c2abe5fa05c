# Debian's cross compiler for oru_triplet, and its C library; what was built runs under qemu-user's
# oru_emulator, or without one where ORU_RUNS_HERE. The files beside this one name them, and include it.
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_C_COMPILER ${oru_triplet}-gcc)
set(CMAKE_CXX_COMPILER ${oru_triplet}-g++)
set(CMAKE_FIND_ROOT_PATH /usr/${oru_triplet})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
if(oru_emulator)
    set(CMAKE_CROSSCOMPILING_EMULATOR ${oru_emulator} -L /usr/${oru_triplet})
endif()
