# ARM, 32 bits, least significant byte first; char is unsigned.
set(CMAKE_SYSTEM_PROCESSOR armhf)
set(oru_triplet arm-linux-gnueabihf)
set(oru_emulator qemu-arm)
# A note on what code of gcc 7.0 expected; nothing here is linked with any.
set(CMAKE_CXX_FLAGS_INIT -Wno-psabi)
include(${CMAKE_CURRENT_LIST_DIR}/debian.cmake)
